// Fetches titles and values of output vectors: from feOutput, or from a column of feResults.
#pragma once

#include "femap/com/BulkCalls.h"
#include "femap/com/ComObjects.h"
#include "femap/com/bulk/VectorFetcher.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace femap::com
{

/// Uses the feOutput that holds the vector (FEMAP before 2020.1).
class ClassicVectorFetcher : public bulk::VectorFetcher
{
public:
    ClassicVectorFetcher(ComContext context, ClassicOutputVector& vector)
        : context_(std::move(context)), vector_(vector)
    {}

    std::vector<double> values(int vectorID, const std::vector<int>& entityIDs) override;
    std::vector<std::pair<int, std::string>> titles() override;
    int classicID(int vectorID) override { return vectorID; }

private:
    ComContext context_;
    ClassicOutputVector& vector_;
    std::optional<ScratchSet> set_;
};

/// Uses a column of the results table (FEMAP since 2020.1).
class ModernVectorFetcher : public bulk::VectorFetcher
{
public:
    ModernVectorFetcher(ComContext context, ModernOutputVector& vector)
        : context_(std::move(context)), vector_(vector)
    {}

    std::vector<double> values(int vectorID, const std::vector<int>& entityIDs) override;
    std::vector<std::pair<int, std::string>> titles() override;
    int classicID(int vectorID) override { return classicVectorID(context_, vectorID); }

private:
    ComContext context_;
    ModernOutputVector& vector_;
    std::optional<ScratchSet> set_;
};

}  // namespace femap::com
