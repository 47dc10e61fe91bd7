#pragma once

#include "femap/Objects.h"
#include "femap/bulk/MissingValue.h"
#include "femap/bulk/Places.h"
#include "femap/bulk/Trust.h"
#include "femap/bulk/VectorFetcher.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace femap::bulk
{

/// What fetching has shown of a FEMAP's output vectors.
struct VectorTrust
{
    Trust values;
    Trust titles;
};

/// An output vector that answers as a plain one does, but fetches in few calls what is to be read
/// of many entities or vectors. Whatever cannot be had so is asked of the plain one, which then
/// loads the vector first.
///
/// A vector's values are fetched when the first one is asked for. Some of them are read plainly as
/// well: when they differ, or when fetching fails, the trust is withdrawn.
class AheadVector : public OutputVector
{
public:
    AheadVector(std::unique_ptr<OutputVector> plain, std::unique_ptr<VectorFetcher> fetcher,
                std::shared_ptr<VectorTrust> trust);

    femap::Value member(const std::string& name) override;
    femap::Value member(const std::string& name, int index) override;
    ReturnCode Get(int vectorID) override;
    int ID() override;
    std::string Title() override;
    int classicID() override;
    double Value(int entityID) override;
    double maxval() override;
    double minval() override;
    void readAhead(std::vector<VectorReading> plan) override;

private:
    /// A vector that will be read.
    struct Planned
    {
        explicit Planned(VectorReading&& reading)
            : id(reading.vectorID), entities(std::move(reading.entityIDs))
        {}

        int id;
        Places entities;
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
        Known,  // listed, and one of them compared
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
    std::shared_ptr<VectorTrust> trust_;

    Places ids_;  // of the planned vectors
    std::vector<Planned> plan_;
    Titles titles_ = Titles::NotWanted;

    Planned* current_ = nullptr;  // the vector that the caller loaded, if it is planned
    int loaded_ = 0;              // its ID
    int held_ = 0;                // the ID of the one that the plain object holds
};

}  // namespace femap::bulk
