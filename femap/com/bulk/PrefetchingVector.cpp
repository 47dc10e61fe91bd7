#include "femap/com/bulk/PrefetchingVector.h"

#include "system/RuntimeError.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace femap::com::bulk
{

using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

// Fewer than these take fewer calls when they are read one by one.
constexpr std::size_t fewestValues = 20;
constexpr std::size_t fewestVectors = 4;

// What FEMAP's lists show for a vector without a title; its own title is asked for then.
constexpr std::string_view noTitle = "Untitled";

}  // namespace

PrefetchingVector::PrefetchingVector(std::unique_ptr<OutputVector> plain,
                                     std::unique_ptr<VectorFetcher> fetcher,
                                     std::shared_ptr<VectorCapabilities> capability)
    : plain_(std::move(plain)), fetcher_(std::move(fetcher)), capability_(std::move(capability))
{}

femap::Value PrefetchingVector::member(const std::string& name)
{
    loadPlain();
    return plain_->member(name);
}

femap::Value PrefetchingVector::member(const std::string& name, int index)
{
    loadPlain();
    return plain_->member(name, index);
}

ReturnCode PrefetchingVector::Get(int vectorID)
{
    Planned* const planned = find(vectorID);
    if (planned != nullptr && !planned->code)
        getPlanned(*planned);
    const ReturnCode code = planned == nullptr ? getPlainly(vectorID) : *planned->code;
    if (code == ReturnCode::Ok && vectorID != 0) {
        current_ = planned;
        loaded_ = vectorID;
    }
    return code;
}

int PrefetchingVector::ID()
{
    loadPlain();
    return plain_->ID();
}

std::string PrefetchingVector::Title()
{
    if (current_ != nullptr && current_->title)
        return *current_->title;
    loadPlain();
    return plain_->Title();
}

int PrefetchingVector::classicID()
{
    if (current_ != nullptr && current_->title)
        return fetcher_->classicID(loaded_);
    loadPlain();
    return plain_->classicID();
}

double PrefetchingVector::Value(int entityID)
{
    if (current_ != nullptr && hasValues(*current_))
        if (const std::optional<std::size_t> index = current_->entities.find(entityID)) {
            const double value = current_->values[*index];
            return std::isnan(value) ? valueOfMissing(*current_, entityID) : value;
        }
    loadPlain();
    return plain_->Value(entityID);
}

double PrefetchingVector::maxval()
{
    loadPlain();
    return plain_->maxval();
}

double PrefetchingVector::minval()
{
    loadPlain();
    return plain_->minval();
}

void PrefetchingVector::prefetch(std::vector<VectorReading> plan)
{
    current_ = nullptr;
    plan_.clear();
    std::vector<int> ids;
    for (VectorReading& reading : plan) {
        if (reading.vectorID <= 0)
            continue;  // no ID: FEMAP takes 0 for the loaded vector
        ids.push_back(reading.vectorID);
        plan_.emplace_back(std::move(reading));
    }
    ids_ = IDIndex(std::move(ids));
    titles_ = plan_.size() >= fewestVectors && capability_->titles.isUsable ? Titles::Wanted
                                                                            : Titles::NotWanted;
}

PrefetchingVector::Planned* PrefetchingVector::find(int vectorID)
{
    const std::optional<std::size_t> index = ids_.find(vectorID);
    return index ? &plan_[*index] : nullptr;
}

ReturnCode PrefetchingVector::getPlainly(int vectorID)
{
    if (vectorID == 0)
        loadPlain();  // FEMAP takes 0 for the vector that is loaded
    const ReturnCode code = plain_->Get(vectorID);
    if (code == ReturnCode::Ok && vectorID != 0)
        held_ = vectorID;
    return code;
}

// Makes the plain object hold what the caller loaded.
void PrefetchingVector::loadPlain()
{
    if (held_ == loaded_)
        return;
    if (plain_->Get(loaded_) != ReturnCode::Ok)
        throw RuntimeError(ErrorNumber::ObjectFailed,
                           "FEMAP no longer has the output vector " + std::to_string(loaded_));
    held_ = loaded_;
}

// The first Get of a planned vector.
void PrefetchingVector::getPlanned(Planned& planned)
{
    if (titles_ == Titles::Wanted)
        listTitles();
    if (titles_ == Titles::Known && planned.title) {
        planned.code = ReturnCode::Ok;  // the list names only vectors that exist
        return;
    }
    planned.code = getPlainly(planned.id);
    if (titles_ == Titles::Listed && planned.title)
        compareTitle(planned);
}

void PrefetchingVector::listTitles()
{
    try {
        for (auto& [id, title] : fetcher_->titles())
            if (Planned* const planned = title == noTitle ? nullptr : find(id))
                planned->title = std::move(title);
        titles_ = Titles::Listed;
    }
    catch (const RuntimeError&) {
        withdrawTitles();
    }
}

// Compares the first listed title that is read with the plain object's.
void PrefetchingVector::compareTitle(const Planned& planned)
{
    try {
        if (planned.code == ReturnCode::Ok && plain_->Title() == planned.title)
            titles_ = Titles::Known;
        else
            withdrawTitles();
    }
    catch (const RuntimeError&) {
        withdrawTitles();
    }
}

void PrefetchingVector::withdrawTitles()
{
    capability_->titles.isUsable = false;
    titles_ = Titles::NotWanted;
    for (Planned& planned : plan_)
        planned.title.reset();
}

bool PrefetchingVector::hasValues(Planned& vector)
{
    if (!vector.values.empty())
        return true;
    if (vector.entities.ids().size() < fewestValues || !capability_->values.isUsable)
        return false;
    if (!fetchValues(vector))
        capability_->values.isUsable = false;
    return !vector.values.empty();
}

bool PrefetchingVector::fetchValues(Planned& vector)
{
    const std::vector<int>& ids = vector.entities.ids();
    try {
        loadPlain();
        std::vector<double> values = fetcher_->values(vector.id, ids);
        if (values.size() != ids.size() || !agreesWithPlain(vector, values))
            return false;
        vector.values = std::move(values);
        return true;
    }
    catch (const RuntimeError&) {
        return false;  // reading one by one shows what FEMAP says
    }
}

// Whether some of the values are the same when they are read one by one: the first, the last, and
// the first 0, which may stand for a missing value.
bool PrefetchingVector::agreesWithPlain(Planned& vector, const std::vector<double>& values)
{
    const std::vector<int>& ids = vector.entities.ids();
    const auto isThere = [](double value) { return !std::isnan(value); };
    const auto first = std::find_if(values.begin(), values.end(), isThere);
    if (!isThere(values.back()))
        demandRefusal(vector, ids.back());
    if (first == values.end())
        return true;
    const auto last = std::find_if(values.rbegin(), values.rend(), isThere).base() - 1;
    const auto zero = std::find(first, values.end(), 0.0);
    const std::array probes = {first, last, zero == values.end() ? first : zero};
    return std::all_of(probes.begin(), probes.end(), [&](const auto& probe) {
        return plain_->Value(ids[static_cast<std::size_t>(probe - values.begin())]) == *probe;
    });
}

// Reads an entity without a value. When FEMAP does not refuse, each such entity will be read.
void PrefetchingVector::demandRefusal(Planned& vector, int entityID)
{
    try {
        plain_->Value(entityID);
        vector.missing.giveUp();
    }
    catch (const RuntimeError&) {
        // Expected of an entity without a value.
    }
}

double PrefetchingVector::valueOfMissing(Planned& vector, int entityID)
{
    if (vector.missing.isRefused())
        throw RuntimeError(vector.missing.number(), noValueText(vector.id, entityID));
    loadPlain();
    try {
        const double value = plain_->Value(entityID);
        vector.missing.giveUp();
        return value;
    }
    catch (const RuntimeError& refusal) {
        vector.missing.learn(entityID, refusal.number());
        throw;
    }
}

}  // namespace femap::com::bulk
