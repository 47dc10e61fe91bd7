#include "femap/com/ComChanges.h"

#include "femap/ValueRuns.h"
#include "femap/com/BulkCalls.h"
#include "femap/com/BulkCapabilities.h"
#include "femap/com/BulkPuts.h"
#include "femap/com/Codes.h"
#include "femap/com/MemberPut.h"
#include "femap/com/bulk/BulkPut.h"
#include "system/RuntimeError.h"

#include <optional>
#include <utility>

namespace femap::com
{

using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

constexpr const char* refusal = "FEMAP refuses it";
constexpr const char* activeMember = "Info_ActiveID";

// Calls a member that returns a status, which must be Ok.
template <class... Arguments>
void demand(const std::string& what, Dispatch& object, const char* member,
            const Arguments&... arguments)
{
    sys::naming(what, [&] { demandOk(code(object.call(member, arguments...)), refusal); });
}

template <class Each>
void putOne(Dispatch& object, const Each& each, const std::string& owner)
{
    sys::naming("Putting " + nameOf(each.member) + " of " + owner,
                [&] { putMember(object, each.member, each.value); });
}

// Puts the values of one entity, through an object of its kind.
void putEntity(Dispatch& object, std::span<const EntityValue> values)
{
    const EntityValue& first = values.front();
    const std::string name = ownerOf(first);
    demand("Loading " + name, object, "Get", first.id);
    for (const EntityValue& each : values)
        putOne(object, each, name);
    demand("Storing " + name, object, "Put", first.id);
}

// Puts the values of the loads of one definition.
void putLoads(Dispatch& definition, std::span<const LoadValue> values)
{
    const LoadValue& first = values.front();
    const std::string name = ownerOf(first);
    definition.put("setID", first.loadSet);
    demand("Loading " + name, definition, "Get", first.definition);
    definition.call("ResetNextLoad");
    std::size_t next = 0;  // the load that the walk comes to
    for (std::size_t i = 0; i < values.size();) {
        const std::size_t number = values[i].load;
        const std::string own = loadOf(values[i]);
        for (; next < number && nextLoad(definition); ++next) {
        }
        std::optional<Dispatch> found = nextLoad(definition);
        ++next;
        if (!found)
            throw RuntimeError(ErrorNumber::ObjectFailed, own + " is not there");
        Dispatch load = asLoadOfItsKind(*std::move(found));
        for (; i < values.size() && values[i].load == number; ++i)
            putOne(load, values[i], own);
        demand("Storing " + own, load, "Put", load.call("ID").number());
    }
}

void putFunction(Dispatch& function, const FunctionValue& value)
{
    const std::string name = ownerOf(value);
    demand("Loading " + name, function, "Get", value.id);
    demand("Putting the points of " + name, function, "PutFunctionList",
           static_cast<int>(value.points.x.size()), value.points.x, value.points.y);
    demand("Storing " + name, function, "Put", value.id);
}

class ComChanges : public ModelChanges
{
public:
    explicit ComChanges(ComContext context) : context_(std::move(context)) {}

    void put(const ModelValues& values) override
    {
        putEntities(values.entities);
        if (!values.loads.empty()) {
            Dispatch definition = application().object("feLoadDefinition");
            forEachRun(std::span(values.loads),
                       [&](std::span<const LoadValue> run) { putLoads(definition, run); });
        }
        if (!values.functions.empty()) {
            Dispatch function = application().object("feFunction");
            for (const FunctionValue& each : values.functions)
                putFunction(function, each);
        }
    }

    DialogSwitches dialogSwitches() override
    {
        return {application().call("DialogAutoSkip").number(),
                application().call("DialogAutoSkipMsg").number()};
    }
    void setDialogSwitches(const DialogSwitches& switches) override
    {
        application().put("DialogAutoSkip", switches.dialogs);
        application().put("DialogAutoSkipMsg", switches.messages);
    }

    void feFileWriteNastran(SolverBrand brand, const std::string& path) override
    {
        demand("Writing the deck " + path, application(), "feFileWriteNastran",
               static_cast<int>(brand), path);
    }
    void feFileReadNastranResults(SolverBrand brand, const std::string& path) override
    {
        demand("Reading the results " + path, application(), "feFileReadNastranResults",
               static_cast<int>(brand), path);
    }
    // An empty set could stand for all that there are.
    void deleteOutputSets(const std::vector<int>& ids) override
    {
        if (ids.empty())
            return;
        sys::naming("Deleting output sets", [&] {
            ScratchSet set(application());
            set.fill(ids);
            demandOk(code(application().call("feDelete", number(EntityType::OutputSet), set.ID())),
                     refusal);
        });
    }
    // A property that is put has no status: what it is then tells.
    void activateOutputSet(int id) override
    {
        sys::naming("Making output set " + std::to_string(id) + " active", [&] {
            application().put(activeMember, number(EntityType::OutputSet), id);
            const int now =
                application().call(activeMember, number(EntityType::OutputSet)).number();
            if (now != id)
                throw RuntimeError(ErrorNumber::ObjectFailed,
                                   "output set " + std::to_string(now) + " stays active");
        });
    }

private:
    Dispatch& application() { return context_.application; }

    void putEntities(std::span<const EntityValue> values)
    {
        for (std::size_t begin = 0, end = 0; begin < values.size(); begin = end) {
            const std::string& word = values[begin].word;
            for (end = begin + 1; end < values.size() && values[end].word == word;)
                ++end;
            Dispatch object = application().object("fe" + word);
            const std::vector<EntityValue> plain =
                withoutBulk(word, object, values.subspan(begin, end - begin));
            forEachRun(std::span(plain),
                       [&](std::span<const EntityValue> run) { putEntity(object, run); });
        }
    }

    // Puts what can be put in bulk, and returns the rest.
    std::vector<EntityValue> withoutBulk(const std::string& word, Dispatch& object,
                                         std::span<const EntityValue> values)
    {
        const std::unique_ptr<bulk::EntityPutter> putter =
            context_.bulk == nullptr ? nullptr : makePutter(word, context_, object);
        if (putter == nullptr)
            return {values.begin(), values.end()};
        return bulk::putInBulk(values, *putter, context_.bulk->puts[word]);
    }

    ComContext context_;
};

}  // namespace

std::unique_ptr<ModelChanges> makeChanges(const ComContext& context)
{
    return std::make_unique<ComChanges>(context);
}

}  // namespace femap::com
