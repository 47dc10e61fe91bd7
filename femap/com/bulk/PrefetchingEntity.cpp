#include "femap/com/bulk/PrefetchingEntity.h"

#include "system/RuntimeError.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace femap::com::bulk
{

using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

constexpr std::size_t callsOfList = 3;  // make a set, add all entities to it, read its IDs

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

Value valueAt(const Column& column, std::size_t index)
{
    if (const auto* const numbers = std::get_if<std::vector<std::int32_t>>(&column))
        return std::int64_t{(*numbers)[index]};
    return std::get<std::vector<double>>(column)[index];
}

}  // namespace

PrefetchingEntity::PrefetchingEntity(std::unique_ptr<Entity> plain,
                                     std::unique_ptr<EntityFetcher> fetcher,
                                     std::shared_ptr<Capability> capability)
    : plain_(std::move(plain)), fetcher_(std::move(fetcher)), capability_(std::move(capability))
{}

Value PrefetchingEntity::member(const std::string& name)
{
    if (std::optional<Value> value = fetched(name, std::nullopt))
        return *std::move(value);
    loadPlain();
    return plain_->member(name);
}

Value PrefetchingEntity::member(const std::string& name, int index)
{
    if (std::optional<Value> value = fetched(name, index))
        return *std::move(value);
    loadPlain();
    return plain_->member(name, index);
}

int PrefetchingEntity::Type()
{
    const std::optional<Value> value = fetched("type", std::nullopt);
    if (value && std::holds_alternative<std::int64_t>(*value))
        return static_cast<int>(std::get<std::int64_t>(*value));
    loadPlain();
    return plain_->Type();
}

ReturnCode PrefetchingEntity::Get(int id)
{
    if (const std::optional<std::size_t> index = existing_.find(id)) {
        current_ = index;
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

void PrefetchingEntity::prefetch(const std::vector<int>& ids,
                                 const std::vector<MemberName>& members)
{
    forgetPlan();
    if (!capability_->isUsable)
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

void PrefetchingEntity::forgetPlan()
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

// Whether fetching takes fewer calls even in the worst case. For a member that is not fetched the
// plain object must load each entity.
bool PrefetchingEntity::isWorthwhile(std::size_t entities, std::size_t members) const
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

// FEMAP takes an ID of 0 for the loaded entity; IDs below 1 are left to the plain object.
void PrefetchingEntity::listExisting(const std::vector<int>& ids)
{
    const std::vector<int> all = fetcher_->existing();
    std::vector<int> known;
    std::set_intersection(ids.begin(), ids.end(), all.begin(), all.end(),
                          std::back_inserter(known));
    known.erase(known.begin(), std::upper_bound(known.begin(), known.end(), 0));
    planned_ = IDIndex({std::upper_bound(ids.begin(), ids.end(), 0), ids.end()});
    existing_ = IDIndex(std::move(known));
    if (!slots_.empty())
        portions_.resize((existing_.ids().size() + fetcher_->portion() - 1) / fetcher_->portion());
}

ReturnCode PrefetchingEntity::getPlainly(int id)
{
    if (id == 0)
        loadPlain();  // FEMAP takes 0 for the entity that is loaded
    const ReturnCode code = plain_->Get(id);
    if (code == ReturnCode::Ok && id != 0) {
        current_.reset();
        loaded_ = id;
        held_ = id;
    }
    return code;
}

// Makes the plain object hold what the caller loaded.
void PrefetchingEntity::loadPlain()
{
    if (held_ == loaded_)
        return;
    if (plain_->Get(loaded_) != ReturnCode::Ok)
        throw RuntimeError(ErrorNumber::ObjectFailed,
                           "FEMAP no longer has the entity " + std::to_string(loaded_));
    held_ = loaded_;
}

// Starts after the slot found last: callers read the members of each entity in the same order.
const PrefetchingEntity::Slot* PrefetchingEntity::findSlot(const std::string& name,
                                                           std::optional<int> index)
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

std::optional<Value> PrefetchingEntity::fetched(const std::string& name, std::optional<int> index)
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

// False when fetching failed; from then on nothing is fetched.
bool PrefetchingEntity::fetch(std::size_t portion)
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
        // FEMAP lacks or refuses the bulk call; reading one by one shows what it says.
    }
    withdraw();
    return false;
}

// Whether the first one of the fetched entities has the same values when it is read one by one.
// Members that FEMAP refuses then are not fetched any more.
bool PrefetchingEntity::agreesWithPlain(int id, const Portion& columns)
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

void PrefetchingEntity::withdraw()
{
    capability_->isUsable = false;
    slots_.clear();
    portions_.clear();
}

}  // namespace femap::com::bulk
