#include "femap/bulk/AheadVector.h"

#include "logging/RuntimeError.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace femap::bulk
{

using logging::ErrorNumber;
using logging::RuntimeError;

namespace
{

// Fetching takes more calls than asking for fewer than these one by one.
constexpr std::size_t fewestValues = 20;
constexpr std::size_t fewestVectors = 4;

}  // namespace

AheadVector::AheadVector(std::unique_ptr<OutputVector> plain,
                         std::unique_ptr<VectorFetcher> fetcher, std::shared_ptr<VectorTrust> trust)
    : plain_(std::move(plain)), fetcher_(std::move(fetcher)), trust_(std::move(trust))
{}

femap::Value AheadVector::member(const std::string& name)
{
    loadPlain();
    return plain_->member(name);
}

femap::Value AheadVector::member(const std::string& name, int index)
{
    loadPlain();
    return plain_->member(name, index);
}

ReturnCode AheadVector::Get(int vectorID)
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

int AheadVector::ID()
{
    loadPlain();
    return plain_->ID();
}

std::string AheadVector::Title()
{
    if (current_ != nullptr && current_->title)
        return *current_->title;
    loadPlain();
    return plain_->Title();
}

int AheadVector::classicID()
{
    if (current_ != nullptr && current_->title)
        return fetcher_->classicID(loaded_);
    loadPlain();
    return plain_->classicID();
}

double AheadVector::Value(int entityID)
{
    if (current_ != nullptr && hasValues(*current_))
        if (const std::optional<std::size_t> place = current_->entities.find(entityID)) {
            const double value = current_->values[*place];
            return std::isnan(value) ? valueOfMissing(*current_, entityID) : value;
        }
    loadPlain();
    return plain_->Value(entityID);
}

double AheadVector::maxval()
{
    loadPlain();
    return plain_->maxval();
}

double AheadVector::minval()
{
    loadPlain();
    return plain_->minval();
}

void AheadVector::readAhead(std::vector<VectorReading> plan)
{
    current_ = nullptr;
    plan_.clear();
    std::vector<int> ids;
    for (VectorReading& reading : plan) {
        if (reading.vectorID <= 0)
            continue;  // means another one to FEMAP
        ids.push_back(reading.vectorID);
        plan_.emplace_back(std::move(reading));
    }
    ids_ = Places(std::move(ids));
    titles_ = plan_.size() >= fewestVectors && trust_->titles.isGiven ? Titles::Wanted
                                                                      : Titles::NotWanted;
}

AheadVector::Planned* AheadVector::find(int vectorID)
{
    const std::optional<std::size_t> place = ids_.find(vectorID);
    return place ? &plan_[*place] : nullptr;
}

ReturnCode AheadVector::getPlainly(int vectorID)
{
    if (vectorID == 0)
        loadPlain();  // means the one that is loaded
    const ReturnCode code = plain_->Get(vectorID);
    if (code == ReturnCode::Ok && vectorID != 0)
        held_ = vectorID;
    return code;
}

// Makes the plain object hold what the caller loaded.
void AheadVector::loadPlain()
{
    if (held_ == loaded_)
        return;
    if (plain_->Get(loaded_) != ReturnCode::Ok)
        throw RuntimeError(ErrorNumber::ObjectFailed,
                           "FEMAP no longer has the output vector " + std::to_string(loaded_));
    held_ = loaded_;
}

// The first time, of a vector that is planned.
void AheadVector::getPlanned(Planned& planned)
{
    if (titles_ == Titles::Wanted)
        listTitles();
    if (titles_ == Titles::Known && planned.title) {
        planned.code = ReturnCode::Ok;  // vectors that the list names are there
        return;
    }
    planned.code = getPlainly(planned.id);
    if (titles_ == Titles::Listed && planned.title)
        compareTitle(planned);
}

void AheadVector::listTitles()
{
    try {
        for (auto& [id, title] : fetcher_->titles())
            if (Planned* const planned = find(id))
                planned->title = std::move(title);
        titles_ = Titles::Listed;
    }
    catch (const RuntimeError&) {
        withdrawTitles();
    }
}

// Compares the first one with what the plain object holds.
void AheadVector::compareTitle(const Planned& planned)
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

void AheadVector::withdrawTitles()
{
    trust_->titles.isGiven = false;
    titles_ = Titles::NotWanted;
    for (Planned& planned : plan_)
        planned.title.reset();
}

bool AheadVector::hasValues(Planned& vector)
{
    if (!vector.values.empty())
        return true;
    if (vector.entities.ids().size() < fewestValues || !trust_->values.isGiven)
        return false;
    if (!fetchValues(vector))
        trust_->values.isGiven = false;
    return !vector.values.empty();
}

bool AheadVector::fetchValues(Planned& vector)
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
        return false;  // the plain way has its own say
    }
}

// Whether some of the values are the same when they are read one by one: the first, the last, and
// the first 0, for that may stand for no value.
bool AheadVector::agreesWithPlain(Planned& vector, const std::vector<double>& values)
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

// Of an entity without a value: when FEMAP does not refuse it, each such entity is asked for.
void AheadVector::demandRefusal(Planned& vector, int entityID)
{
    try {
        plain_->Value(entityID);
        vector.missing.giveUp();
    }
    catch (const RuntimeError&) {
        // As it should be.
    }
}

double AheadVector::valueOfMissing(Planned& vector, int entityID)
{
    if (const std::optional<RuntimeError> refusal = vector.missing.refusalOf(entityID))
        throw RuntimeError(*refusal);
    loadPlain();
    try {
        const double value = plain_->Value(entityID);
        vector.missing.giveUp();
        return value;
    }
    catch (const RuntimeError& refusal) {
        vector.missing.learn(entityID, refusal);
        throw;
    }
}

}  // namespace femap::bulk
