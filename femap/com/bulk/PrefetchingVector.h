// An output vector that fetches in few calls what prefetch announced. Whatever cannot be fetched is
// read from the plain object, which calls FEMAP for each value and must load the vector first.
#pragma once

#include "femap/Objects.h"
#include "femap/com/bulk/Capability.h"
#include "femap/com/bulk/IDIndex.h"
#include "femap/com/bulk/MissingValue.h"
#include "femap/com/bulk/VectorFetcher.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace femap::com::bulk
{

/// Which bulk reading of output vectors works with this FEMAP.
struct VectorCapabilities
{
    Capability values;
    Capability titles;
};

/// A vector's values are fetched when the first one is asked for. Some of them are read one by one
/// as well: when they differ, or when fetching fails, the capability is withdrawn.
class PrefetchingVector : public OutputVector
{
public:
    PrefetchingVector(std::unique_ptr<OutputVector> plain, std::unique_ptr<VectorFetcher> fetcher,
                      std::shared_ptr<VectorCapabilities> capability);

    femap::Value member(const std::string& name) override;
    femap::Value member(const std::string& name, int index) override;
    ReturnCode Get(int vectorID) override;
    int ID() override;
    std::string Title() override;
    int classicID() override;
    double Value(int entityID) override;
    double maxval() override;
    double minval() override;
    void prefetch(std::vector<VectorReading> plan) override;

private:
    /// A vector that will be read.
    struct Planned
    {
        explicit Planned(VectorReading&& reading)
            : id(reading.vectorID), entities(std::move(reading.entityIDs))
        {}

        int id;
        IDIndex entities;
        std::optional<ReturnCode> code;  // what Get returned
        std::optional<std::string> title;
        std::vector<double> values;  // at the entities; empty: not fetched
        MissingValue missing;
    };

    enum class Titles
    {
        NotWanted,
        Wanted,
        Listed,
        Known,  // listed, and one of them compared with the plain object
    };

    Planned* find(int vectorID);
    ReturnCode getPlainly(int vectorID);
    void loadPlain();
    void getPlanned(Planned& planned);
    void listTitles();
    void compareTitle(const Planned& planned);
    void withdrawTitles();
    bool hasValues(Planned& vector);
    bool fetchValues(Planned& vector);
    bool agreesWithPlain(Planned& vector, const std::vector<double>& values);
    void demandRefusal(Planned& vector, int entityID);
    double valueOfMissing(Planned& vector, int entityID);

    std::unique_ptr<OutputVector> plain_;
    std::unique_ptr<VectorFetcher> fetcher_;
    std::shared_ptr<VectorCapabilities> capability_;

    IDIndex ids_;  // of the planned vectors
    std::vector<Planned> plan_;
    Titles titles_ = Titles::NotWanted;

    Planned* current_ = nullptr;  // the vector that the caller loaded, if it is planned
    int loaded_ = 0;              // its ID
    int held_ = 0;                // the ID of the one that the plain object holds
};

}  // namespace femap::com::bulk
