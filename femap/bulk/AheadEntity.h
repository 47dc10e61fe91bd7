#pragma once

#include "femap/Objects.h"
#include "femap/bulk/EntityFetcher.h"
#include "femap/bulk/Places.h"
#include "femap/bulk/Trust.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace femap::bulk
{

/// An entity that answers as a plain one does, but fetches in few calls what is to be read of many.
/// Whatever cannot be had so is asked of the plain one, which then loads the entity first.
///
/// IDs that exist are known from one list. Their members are fetched portion by portion, when the
/// first of a portion is asked for. Of the first portion one entity is read plainly as well: when
/// the values differ, or when fetching fails, the trust is withdrawn.
class AheadEntity : public Entity
{
public:
    AheadEntity(std::unique_ptr<Entity> plain, std::unique_ptr<EntityFetcher> fetcher,
                std::shared_ptr<Trust> trust);

    Value member(const std::string& name) override;
    Value member(const std::string& name, int index) override;
    ReturnCode Get(int id) override;
    int Type() override;
    void readAhead(const std::vector<int>& ids, const std::vector<MemberName>& members) override;

private:
    struct Slot
    {
        MemberName member;
        std::size_t column = 0;
    };
    using Portion = std::vector<Column>;  // empty: not fetched

    void forgetPlan();
    bool isWorthwhile(std::size_t entities, std::size_t members) const;
    void listExisting(const std::vector<int>& ids);
    ReturnCode getPlainly(int id);
    void loadPlain();
    const Slot* findSlot(const std::string& name, std::optional<int> index);
    std::optional<Value> fetched(const std::string& name, std::optional<int> index);
    bool fetch(std::size_t portion);
    bool agreesWithPlain(int id, const Portion& columns);
    void withdraw();

    std::unique_ptr<Entity> plain_;
    std::unique_ptr<EntityFetcher> fetcher_;
    std::shared_ptr<Trust> trust_;

    Places planned_;
    Places existing_;                        // of the planned ones
    std::optional<ReturnCode> missingCode_;  // what Get returns for the others
    std::vector<Slot> slots_;                // the members that are fetched
    std::size_t nextSlot_ = 0;               // after the one asked for last
    std::vector<Portion> portions_;
    bool isVerified_ = false;

    std::optional<std::size_t> current_;  // place of the entity that the caller loaded
    int loaded_ = 0;                      // its ID
    int held_ = 0;                        // the ID of the one that the plain object holds
};

}  // namespace femap::bulk
