#include "femap/bulk/AheadEntity.h"

#include "logging/RuntimeError.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace femap::bulk
{

using logging::ErrorNumber;
using logging::RuntimeError;

namespace
{

constexpr std::size_t callsOfList = 3;  // a set, all of the kind into it, its array

std::size_t sizeOf(const Column& column)
{
    return std::visit(
        []<class Numbers>(const Numbers& numbers) -> std::size_t {
            if constexpr (std::is_same_v<Numbers, std::monostate>)
                return 0;
            else
                return numbers.size();
        },
        column);
}

bool isThere(const Column& column)
{
    return !std::holds_alternative<std::monostate>(column);
}

Value valueAt(const Column& column, std::size_t place)
{
    if (const auto* const numbers = std::get_if<std::vector<std::int32_t>>(&column))
        return std::int64_t{(*numbers)[place]};
    return std::get<std::vector<double>>(column)[place];
}

}  // namespace

AheadEntity::AheadEntity(std::unique_ptr<Entity> plain, std::unique_ptr<EntityFetcher> fetcher,
                         std::shared_ptr<Trust> trust)
    : plain_(std::move(plain)), fetcher_(std::move(fetcher)), trust_(std::move(trust))
{}

Value AheadEntity::member(const std::string& name)
{
    if (std::optional<Value> value = fetched(name, std::nullopt))
        return *std::move(value);
    loadPlain();
    return plain_->member(name);
}

Value AheadEntity::member(const std::string& name, int index)
{
    if (std::optional<Value> value = fetched(name, index))
        return *std::move(value);
    loadPlain();
    return plain_->member(name, index);
}

int AheadEntity::Type()
{
    const std::optional<Value> value = fetched("type", std::nullopt);
    if (value && std::holds_alternative<std::int64_t>(*value))
        return static_cast<int>(std::get<std::int64_t>(*value));
    loadPlain();
    return plain_->Type();
}

ReturnCode AheadEntity::Get(int id)
{
    if (const std::optional<std::size_t> place = existing_.find(id)) {
        current_ = place;
        loaded_ = id;
        return ReturnCode::Ok;
    }
    const bool isMissing = planned_.find(id).has_value();
    if (isMissing && missingCode_)
        return *missingCode_;
    const ReturnCode code = getPlainly(id);
    if (isMissing && code != ReturnCode::Ok)
        missingCode_ = code;
    return code;
}

void AheadEntity::readAhead(const std::vector<int>& ids, const std::vector<MemberName>& members)
{
    forgetPlan();
    if (!trust_->isGiven)
        return;
    const std::vector<bool> isChosen = fetcher_->choose(members);
    for (std::size_t i = 0; i < members.size(); ++i)
        if (isChosen[i])
            slots_.push_back({members[i], slots_.size()});
    if (!isWorthwhile(ids.size(), members.size())) {
        forgetPlan();
        return;
    }
    try {
        listExisting(ids);
    }
    catch (const RuntimeError&) {
        forgetPlan();
        withdraw();
    }
}

void AheadEntity::forgetPlan()
{
    planned_ = {};
    existing_ = {};
    missingCode_.reset();
    slots_.clear();
    portions_.clear();
    nextSlot_ = 0;
    isVerified_ = false;
    current_.reset();
}

// Compares the calls that it takes in the worst case. A member that is not fetched makes the plain
// object load its entity after all.
bool AheadEntity::isWorthwhile(std::size_t entities, std::size_t members) const
{
    const bool loadsEach = slots_.size() < members || (!slots_.empty() && fetcher_->portion() == 1);
    const std::size_t loads = loadsEach ? entities : 0;
    std::size_t calls = callsOfList + loads + entities * (members - slots_.size());
    if (!slots_.empty()) {
        const std::size_t portions = (entities + fetcher_->portion() - 1) / fetcher_->portion();
        const Cost cost = fetcher_->cost();
        calls += cost.once + portions * cost.each + 1 + slots_.size();  // the last ones: verifying
    }
    return calls < entities * (1 + members);
}

// An ID of 0 means another one to FEMAP; such are left to the plain way.
void AheadEntity::listExisting(const std::vector<int>& ids)
{
    const std::vector<int> all = fetcher_->existing();
    std::vector<int> known;
    std::set_intersection(ids.begin(), ids.end(), all.begin(), all.end(),
                          std::back_inserter(known));
    known.erase(known.begin(), std::upper_bound(known.begin(), known.end(), 0));
    planned_ = Places({std::upper_bound(ids.begin(), ids.end(), 0), ids.end()});
    existing_ = Places(std::move(known));
    if (!slots_.empty())
        portions_.resize((existing_.ids().size() + fetcher_->portion() - 1) / fetcher_->portion());
}

ReturnCode AheadEntity::getPlainly(int id)
{
    if (id == 0)
        loadPlain();  // means the one that is loaded
    const ReturnCode code = plain_->Get(id);
    if (code == ReturnCode::Ok && id != 0) {
        current_.reset();
        loaded_ = id;
        held_ = id;
    }
    return code;
}

// Makes the plain object hold what the caller loaded.
void AheadEntity::loadPlain()
{
    if (held_ == loaded_)
        return;
    if (plain_->Get(loaded_) != ReturnCode::Ok)
        throw RuntimeError(ErrorNumber::ObjectFailed,
                           "FEMAP no longer has the entity " + std::to_string(loaded_));
    held_ = loaded_;
}

// Members are asked for in the same order of each entity.
const AheadEntity::Slot* AheadEntity::findSlot(const std::string& name, std::optional<int> index)
{
    for (std::size_t tries = 0; tries < slots_.size(); ++tries, ++nextSlot_) {
        if (nextSlot_ >= slots_.size())
            nextSlot_ = 0;
        const Slot& slot = slots_[nextSlot_];
        if (slot.member.index == index && slot.member.name == name) {
            ++nextSlot_;
            return &slot;
        }
    }
    return nullptr;
}

std::optional<Value> AheadEntity::fetched(const std::string& name, std::optional<int> index)
{
    if (!current_)
        return std::nullopt;
    const Slot* slot = findSlot(name, index);
    if (slot == nullptr)
        return std::nullopt;
    const std::size_t portion = *current_ / fetcher_->portion();
    if (portions_[portion].empty()) {
        if (!fetch(portion))
            return std::nullopt;
        slot = findSlot(name, index);
        if (slot == nullptr)
            return std::nullopt;
    }
    const Column& column = portions_[portion][slot->column];
    if (!isThere(column))
        return std::nullopt;
    return valueAt(column, *current_ % fetcher_->portion());
}

// False when it cannot be fetched: then nothing is any more.
bool AheadEntity::fetch(std::size_t portion)
{
    const std::size_t size = fetcher_->portion();
    const std::span<const int> all = existing_.ids();
    const std::span<const int> ids =
        all.subspan(portion * size, std::min(size, all.size() - portion * size));
    try {
        if (size == 1)
            loadPlain();
        Portion columns = fetcher_->fetch(ids);
        const bool isWhole = std::all_of(columns.begin(), columns.end(), [&](const Column& column) {
            return !isThere(column) || sizeOf(column) == ids.size();
        });
        if (isWhole && (isVerified_ || agreesWithPlain(ids.front(), columns))) {
            isVerified_ = true;
            portions_[portion] = std::move(columns);
            return true;
        }
    }
    catch (const RuntimeError&) {
        // FEMAP lacks or refuses what fetches many; the plain way has its own say.
    }
    withdraw();
    return false;
}

// Whether the first one of the fetched entities has the same values when it is read one by one.
// Members that the plain way refuses are left to it.
bool AheadEntity::agreesWithPlain(int id, const Portion& columns)
{
    if (held_ != id) {
        if (plain_->Get(id) != ReturnCode::Ok)
            return false;
        held_ = id;
    }
    bool agrees = true;
    std::erase_if(slots_, [&](const Slot& slot) {
        const Column& column = columns[slot.column];
        if (!isThere(column))
            return true;
        try {
            const auto& [name, index] = slot.member;
            const Value value = index ? plain_->member(name, *index) : plain_->member(name);
            agrees = agrees && value == valueAt(column, 0);
            return false;
        }
        catch (const RuntimeError&) {
            return true;
        }
    });
    return agrees;
}

void AheadEntity::withdraw()
{
    trust_->isGiven = false;
    slots_.clear();
    portions_.clear();
}

}  // namespace femap::bulk
