#pragma once

#include "fake/FormFixture.h"
#include "femap/com/bulk/Calls.h"
#include "femap/com/bulk/PrefetchingVector.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <memory>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

namespace femap::com::bulk
{

constexpr double nothing = std::numeric_limits<double>::quiet_NaN();

/// The host's output vector, with a note of each call.
class NotedVector : public OutputVector
{
public:
    NotedVector(std::unique_ptr<OutputVector> real, Calls& calls)
        : real_(std::move(real)), calls_(calls)
    {}

    std::function<void(const std::string&)> beforeCall = [](const std::string&) {};
    bool missingIsZero = false;

    femap::Value member(const std::string& name) override { return noted(name).member(name); }
    femap::Value member(const std::string& name, int index) override
    {
        return noted(name).member(name, index);
    }
    ReturnCode Get(int id) override { return noted("Get " + std::to_string(id)).Get(id); }
    int ID() override { return noted("ID").ID(); }
    std::string Title() override { return noted("Title").Title(); }
    int classicID() override { return noted("classicID").classicID(); }
    double Value(int id) override
    {
        noted("Value " + std::to_string(id));
        if (!missingIsZero)
            return real_->Value(id);
        try {
            return real_->Value(id);
        }
        catch (const RuntimeError&) {
            return 0;
        }
    }
    double maxval() override { return noted("maxval").maxval(); }
    double minval() override { return noted("minval").minval(); }

private:
    OutputVector& noted(const std::string& call)
    {
        beforeCall(call);
        calls_.push_back(call);
        return *real_;
    }

    std::unique_ptr<OutputVector> real_;
    Calls& calls_;
};

/// How fetching goes wrong.
enum class VectorFlaw
{
    None,
    NoValues,
    FewerValues,
    OtherValues,
    ZeroForNone,
    NoneAtTheEnd,
    NoTitles,
    OtherTitles,
    NoneIsUntitled,
    FemapIsGone,
};

class ModelVectorFetcher : public VectorFetcher
{
public:
    ModelVectorFetcher(neutral::OutputSet& set, Calls& calls, VectorFlaw flaw)
        : set_(set), calls_(calls), flaw_(flaw)
    {}

    std::vector<double> values(int vectorID, const std::vector<int>& ids) override
    {
        calls_.push_back("fetch " + std::to_string(vectorID));
        if (flaw_ == VectorFlaw::NoValues)
            refuse("values");
        if (flaw_ == VectorFlaw::FemapIsGone)
            throw ConnectionLost("FEMAP is gone");
        const neutral::OutputVector& vector = *set_.vectors.find(vectorID);
        std::vector<double> result;
        for (const int id : ids) {
            const auto place = std::find(vector.ids.begin(), vector.ids.end(), id);
            if (place == vector.ids.end())
                result.push_back(flaw_ == VectorFlaw::ZeroForNone ? 0 : nothing);
            else
                result.push_back(
                    vector.values[static_cast<std::size_t>(place - vector.ids.begin())]);
        }
        if (flaw_ == VectorFlaw::FewerValues)
            result.pop_back();
        if (flaw_ == VectorFlaw::NoneAtTheEnd)
            std::fill(result.end() - 3, result.end(), nothing);
        if (flaw_ == VectorFlaw::OtherValues)
            result.front() += 1;
        return result;
    }
    std::vector<std::pair<int, std::string>> titles() override
    {
        calls_.push_back("titles");
        if (flaw_ == VectorFlaw::NoTitles)
            refuse("titles");
        std::vector<std::pair<int, std::string>> result;
        for (const neutral::OutputVector& vector : set_.vectors)
            result.emplace_back(vector.id, listedTitle(vector.title));
        return result;
    }
    int classicID(int vectorID) override { return vectorID; }

private:
    std::string listedTitle(const std::string& title) const
    {
        if (flaw_ == VectorFlaw::NoneIsUntitled && title.empty())
            return "Untitled";
        return withoutControlCharacters(title) + (flaw_ == VectorFlaw::OtherTitles ? "?" : "");
    }

    neutral::OutputSet& set_;
    Calls& calls_;
    VectorFlaw flaw_;
};

struct PrefetchedVectors
{
    PrefetchedVectors()
    {
        neutral::OutputSet set;
        set.id = 1;
        for (const int id : {1, 2, 7, 9, 11})
            set.vectors.put(vector(id));
        f.model().outputSets.put(set);
    }

    // Vector 2 lacks every third entity, vector 7 all of them; vector 11 has no title.
    static neutral::OutputVector vector(int id)
    {
        neutral::OutputVector result;
        result.id = id;
        if (id != 11)
            result.title = "Vector\t" + std::to_string(id);
        result.minval = -id;
        result.maxval = id + 0.5;
        for (int entity = 1; entity <= 60 && id != 7; ++entity)
            if (id != 2 || entity % 3 != 0) {
                result.ids.push_back(entity);
                result.values.push_back(entity % 10 == 0 ? 0 : id + entity / 100.0);
            }
        return result;
    }

    PrefetchingVector make(VectorFlaw flaw = VectorFlaw::None)
    {
        auto plain = std::make_unique<NotedVector>(f.context.femap().feOutput(), calls);
        noted = plain.get();
        return {std::move(plain),
                std::make_unique<ModelVectorFetcher>(*f.model().outputSets.find(1), calls, flaw),
                capability};
    }
    static std::vector<int> entities(int count = 60)
    {
        std::vector<int> result(static_cast<std::size_t>(count));
        std::iota(result.begin(), result.end(), 1);
        return result;
    }
    std::ptrdiff_t countOf(const std::string& call) const
    {
        return std::count(calls.begin(), calls.end(), call);
    }

    fake::FormFixture f;
    Calls calls;
    NotedVector* noted = nullptr;
    std::shared_ptr<VectorCapabilities> capability = std::make_shared<VectorCapabilities>();
};

}  // namespace femap::com::bulk
