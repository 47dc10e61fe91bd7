#include "probe/Writes.h"

#include "probe/Sets.h"
#include "system/Platform.h"
#include "system/RuntimeError.h"
#include "windows/Text.h"

#include <algorithm>
#include <optional>

namespace probe
{

namespace
{

using femap::EntityType;

constexpr int nxNastran = 8;    // brand of a solver
constexpr double changeBy = 1;  // of every value that is put

struct Changed
{
    std::string_view object;
    EntityType type;
    std::string_view member;
    int index;  // -1: none
};

// clang-format off
constexpr Changed changedValues[] = {
    {"feNode", EntityType::Node,     "x",       -1},
    {"feElem", EntityType::Element,  "orient",   0},
    {"feProp", EntityType::Property, "pval",     7},
    {"feMatl", EntityType::Material, "Damping", -1},
};

// Files of results that a solver may have left beside a deck.
constexpr std::string_view resultEndings[] = {".op2", ".OP2", ".f06", ".F06"};
// clang-format on

std::vector<Argument> indexOf(const Changed& changed)
{
    return changed.index < 0 ? list() : list(changed.index);
}

double readAnew(const Object& application, const Changed& changed, int id)
{
    const Object entity = application.object(std::string(changed.object));
    entity.call("Get", list(id));
    return entity.call(std::string(changed.member), indexOf(changed)).value.real();
}

// Puts the value into the object and the object into the model; the text tells what failed.
std::string store(Session& session, const Object& entity, const Changed& changed, int id,
                  double value)
{
    entity.call("Get", list(id));
    std::vector<Argument> arguments = indexOf(changed);
    arguments.emplace_back(value);
    const Answer put = entity.put(std::string(changed.member), std::move(arguments));
    if (!put.isDone())
        return "put: " + session.reason(put);
    const Answer stored = entity.call("Put", list(id));
    return stored.isOk() ? "" : "Put: " + session.reason(stored);
}

void changeValue(Session& session, const Object& application, const Changed& changed)
{
    const std::vector<int> ids = allIDs(application, changed.type);
    const std::string name = std::string(changed.object) + '.' + std::string(changed.member);
    if (ids.empty()) {
        session.report.line(name, Verdict::NotTried, "the model has none");
        return;
    }
    const int id = ids.front();
    session.report.begin(name + " of " + std::to_string(id));
    const Object entity = application.object(std::string(changed.object));
    const double before = readAnew(application, changed, id);
    const std::string trouble = store(session, entity, changed, id, before + changeBy);
    const double meanwhile = readAnew(application, changed, id);
    const std::string troubleBack = store(session, entity, changed, id, before);
    const double after = readAnew(application, changed, id);
    const bool isChanged = meanwhile == before + changeBy;
    const bool isBack = after == before;
    session.report.end(isChanged && isBack ? Verdict::Same : Verdict::Differs,
                       shown(before) + ", then " + shown(meanwhile) +
                           (isChanged ? "" : " NOT CHANGED") + ", then " + shown(after) +
                           (isBack ? ", put back" : " NOT PUT BACK") +
                           (trouble.empty() ? "" : "; " + trouble) +
                           (troubleBack.empty() ? "" : "; back: " + troubleBack));
}

// In one call, without an object of the entity.
void changeInBulk(Session& session, const Object& application)
{
    const std::vector<int> ids = allIDs(application, EntityType::Property);
    if (ids.empty())
        return;
    const Changed place = {"feProp", EntityType::Property, "pval", 7};
    const Object property = application.object("feProp");
    const double before = readAnew(application, place, ids.front());
    const std::vector<int> one = {ids.front()};
    for (const double value : {before + changeBy, before}) {
        session.read(property, "PutValueArray", statusAnd(),
                     list(1, one, std::vector<int>{place.index}, std::vector<double>{value}));
        const double now = readAnew(application, place, ids.front());
        session.report.line("  read again", now == value ? Verdict::Same : Verdict::Differs,
                            shown(now));
    }
}

void changeFunction(Session& session, const Object& application)
{
    const std::vector<int> ids = allIDs(application, EntityType::Function);
    if (ids.empty()) {
        session.report.line("feFunction.PutFunctionList", Verdict::NotTried, "the model has none");
        return;
    }
    const Object function = application.object("feFunction");
    function.call("Get", list(ids.front()));
    const auto points = [&] {
        return function.call(
            "GetFunctionList",
            list(Argument::out(VT_I4), Argument::out(VT_VARIANT), Argument::out(VT_VARIANT)));
    };
    const Answer before = points();
    if (!before.isOk())
        return;
    // What stands in the arrays beyond the count is no part of the function.
    const auto count = static_cast<std::size_t>(before.filled[0].number());
    const auto firstOf = [&](const Value& array) {
        std::vector<double> numbers = array.numbers();
        numbers.resize(std::min(numbers.size(), count));
        return numbers;
    };
    const std::vector<double> x = firstOf(before.filled[1]);
    const std::vector<double> y = firstOf(before.filled[2]);
    std::vector<double> higher = y;
    for (double& each : higher)
        each += changeBy;
    for (const std::vector<double>& values : {higher, y}) {
        session.read(function, "PutFunctionList", statusAnd(),
                     list(static_cast<int>(x.size()), x, values));
        session.read(function, "Put", statusAnd(), list(ids.front()));
        function.call("Get", list(ids.front()));
        const Answer now = points();
        const bool isSame = now.isOk() && firstOf(now.filled[2]) == values;
        session.report.line("  read again", isSame ? Verdict::Same : Verdict::Differs,
                            isSame ? "as put" : "other points");
    }
}

// A number of the first load that there is; the index is -1 for a temperature. Nothing where the
// model has no loads.
struct LoadValue
{
    Object load;
    std::string_view member;
    int index;
};

std::optional<LoadValue> firstLoad(const Object& application)
{
    const std::vector<int> sets = allIDs(application, EntityType::LoadSet);
    if (sets.empty())
        return std::nullopt;
    const int active =
        application.call("Info_ActiveID", list(static_cast<int>(EntityType::LoadSet)))
            .value.number();
    const Object definition = application.object("feLoadDefinition");
    definition.put("setID", list(active > 0 ? active : sets.front()));
    for (const int id : allIDs(application, EntityType::LoadDefinition)) {
        definition.call("Get", list(id));
        definition.call("ResetNextLoad");
        Answer next = definition.call("NextLoad", list(Argument::out(VT_DISPATCH)));
        if (!next.isOk())
            continue;
        Object load(definition.connection(), next.filled[0].takeObject(), "load");
        const bool isTemperature = !load.has("load");
        return LoadValue{std::move(load), isTemperature ? "temp" : "load", isTemperature ? -1 : 0};
    }
    return std::nullopt;
}

double numberOf(const LoadValue& value)
{
    return value.load.call(std::string(value.member), value.index < 0 ? list() : list(value.index))
        .value.real();
}

void changeLoad(Session& session, const Object& application)
{
    const std::optional<LoadValue> first = firstLoad(application);
    if (!first) {
        session.report.line("load.Put", Verdict::NotTried, "the model has no load definitions");
        return;
    }
    const double before = numberOf(*first);
    for (const double value : {before + changeBy, before}) {
        std::vector<Argument> arguments = first->index < 0 ? list() : list(first->index);
        arguments.emplace_back(value);
        const Answer put = first->load.put(std::string(first->member), std::move(arguments));
        const std::string place = first->index < 0 ? "" : '(' + std::to_string(first->index) + ')';
        session.report.line("load." + std::string(first->member) + place,
                            put.isDone() ? Verdict::Same : Verdict::Refused,
                            put.isDone() ? shown(value) : session.reason(put));
        const int id = first->load.call("ID").value.number();
        session.read(first->load, "Put", statusAnd(), list(id));
        const std::optional<LoadValue> again = firstLoad(application);
        const double now = again ? numberOf(*again) : 0;
        session.report.line("  read again",
                            again && now == value ? Verdict::Same : Verdict::Differs, shown(now));
    }
}

// FEMAP's own dialogs stay away meanwhile.
class NoDialogs
{
public:
    explicit NoDialogs(const Object& application) : application_(application)
    {
        for (std::size_t i = 0; i < std::size(names); ++i) {
            before_[i] = application_.call(names[i]).value.number();
            application_.put(names[i], list(1));
        }
    }
    NoDialogs(const NoDialogs&) = delete;
    NoDialogs& operator=(const NoDialogs&) = delete;

    void restore()
    {
        for (std::size_t i = 0; i < std::size(names); ++i)
            application_.put(names[i], list(before_[i]));
    }

private:
    static constexpr const char* names[] = {"DialogAutoSkip", "DialogAutoSkipMsg"};

    const Object& application_;
    int before_[std::size(names)] = {};
};

bool isFile(const std::string& path)
{
    const DWORD attributes = GetFileAttributesW(windows::toWide(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

void writeDeck(Session& session, const Object& application, const std::string& path)
{
    DeleteFileW(windows::toWide(path).c_str());  // of an earlier probe
    session.read(application, "feFileWriteNastran", statusAnd(), list(nxNastran, path));
    session.report.line(
        "  the deck", isFile(path) ? Verdict::Same : Verdict::Differs,
        isFile(path) ? session.report.name(path) : "is not there: " + session.report.name(path));
}

std::vector<int> outputSets(const Object& application)
{
    std::vector<int> ids = allIDs(application, EntityType::OutputSet);
    std::erase(ids, 0);  // an array may be longer than its count
    return ids;
}

void readResults(Session& session, const Object& application, const std::string& stem)
{
    const auto* const ending = std::ranges::find_if(
        resultEndings, [&](std::string_view each) { return isFile(stem + std::string(each)); });
    if (ending == std::end(resultEndings)) {
        session.report.line("feFileReadNastranResults", Verdict::NotTried,
                            "there is no .op2 or .f06 beside the copy");
        return;
    }
    const std::vector<int> before = outputSets(application);
    session.read(application, "feFileReadNastranResults", statusAnd(),
                 list(nxNastran, stem + std::string(*ending)));
    const std::vector<int> after = outputSets(application);
    std::vector<int> added;
    std::ranges::set_difference(after, before, std::back_inserter(added));
    session.report.line("  output sets that came", added.empty() ? Verdict::Differs : Verdict::Same,
                        shown(added));
    if (added.empty())
        return;
    const FemapSet own = setOf(application, added);
    session.read(application, "feDelete", statusAnd(),
                 list(static_cast<int>(EntityType::OutputSet), own.number));
    const std::vector<int> left = outputSets(application);
    session.report.line("  output sets that are left",
                        left == before ? Verdict::Same : Verdict::Differs, shown(left));
}

bool isSamePath(const std::string& left, const std::string& right)
{
    std::error_code reason;
    const std::wstring first = windows::toWide(sys::fullPath(left, reason));
    const std::wstring second = windows::toWide(sys::fullPath(right, reason));
    return !first.empty() &&
           CompareStringOrdinal(first.c_str(), -1, second.c_str(), -1, TRUE) == CSTR_EQUAL;
}

}  // namespace

void demandIsOpen(const Object& application, const std::string& copy)
{
    const std::string open = application.call("ModelName").value.text();
    if (!isSamePath(open, copy))
        throw sys::RuntimeError(sys::ErrorNumber::InvalidCall,
                                "FEMAP has another model open than the copy to write to: " +
                                    (open.empty() ? std::string("one without a file") : open));
}

void probeWrites(Session& session, const Object& application, Generation generation,
                 const std::string& copy)
{
    session.report.section("F Changes to a copy");
    for (const Changed& each : changedValues)
        changeValue(session, application, each);
    if (generation == Generation::Modern)
        changeInBulk(session, application);
    changeFunction(session, application);
    changeLoad(session, application);
    const std::size_t name = copy.find_last_of(sys::pathSeparators) + 1;
    const std::string stem = copy.substr(0, std::max(copy.rfind('.'), name));
    NoDialogs noDialogs(application);
    writeDeck(session, application, copy.substr(0, name) + "velmar-probe.dat");
    readResults(session, application, stem);
    noDialogs.restore();
}

}  // namespace probe
