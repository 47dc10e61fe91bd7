#pragma once

#include "femap/bulk/VectorFetcher.h"
#include "femap/com/BulkCalls.h"
#include "femap/com/ComObjects.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace femap::com
{

/// Through the feOutput that holds the vector.
class ClassicVectorFetcher : public bulk::VectorFetcher
{
public:
    ClassicVectorFetcher(Session session, ClassicOutputVector& vector)
        : session_(std::move(session)), output_(vector.object())
    {}

    std::vector<double> values(int vectorID, const std::vector<int>& entityIDs) override;
    std::vector<std::pair<int, std::string>> titles() override;
    int classicID(int vectorID) override { return vectorID; }

private:
    Session session_;
    Dispatch& output_;
    std::optional<ScratchSet> set_;
};

/// Through a column of the results table.
class ModernVectorFetcher : public bulk::VectorFetcher
{
public:
    ModernVectorFetcher(Session session, ModernOutputVector& vector)
        : session_(std::move(session)), results_(vector.results()), outputSet_(vector.outputSet())
    {}

    std::vector<double> values(int vectorID, const std::vector<int>& entityIDs) override;
    std::vector<std::pair<int, std::string>> titles() override;
    int classicID(int vectorID) override { return classicVectorID(session_, vectorID); }

private:
    int locationOf(int vectorID);
    void fillMissingWithNothing();

    Session session_;
    Dispatch& results_;
    int outputSet_;
    std::optional<ScratchSet> set_;
};

}  // namespace femap::com
