// The application's own members: version, models, what is active, how much there is of each kind.
#include "probe/Reads.h"
#include "probe/Sets.h"

namespace probe
{

namespace
{

using femap::EntityType;

struct PlainRead
{
    std::string_view member;
    VARTYPE type;
    bool isOfModern = false;  // an older FEMAP lacks it
};

// clang-format off
constexpr PlainRead plainReads[] = {
    {"Info_Version",             VT_R8},
    {"feAppVersion",             VT_I4},
    {"ModelName",                VT_BSTR},
    {"hMainWnd",                 VT_I8},
    {"EventLParam",              VT_I8},
    {"DialogAutoSkip",           VT_I4},
    {"DialogAutoSkipMsg",        VT_I4},
    {"DialogAutoAnswer",         VT_I4},
    {"feFileIsModified",         VT_I4},
    {"Pref_API_WarningLevel",    VT_I4,   true},
    {"Pref_API_WarningInDialog", VT_BOOL, true},
};

struct CountedKind
{
    int type;
    std::string_view word;
    bool isOwn = true;  // lives in no set, so that a set with all has as many as FEMAP counts
};

constexpr CountedKind countedKinds[] = {
    { 3, "points"},
    { 4, "curves"},
    { 5, "surfaces"},
    { 7, "nodes"},
    { 8, "elements"},
    { 9, "coordinate systems"},
    {10, "materials"},
    {11, "properties"},
    {12, "load sets"},
    {13, "mesh loads",         false},
    {14, "geometry loads",     false},
    {15, "nodal temperatures", false},
    {16, "elemental temperatures", false},
    {17, "constraint sets"},
    {24, "groups"},
    {28, "output sets"},
    {29, "output vectors",     false},
    {33, "layers"},
    {35, "functions"},
    {46, "load definitions",   false},
    {60, "analysis sets"},
};
// clang-format on

std::string fileNameOf(const std::string& path)
{
    return path.substr(path.find_last_of("\\/") + 1);
}

void probeModels(Session& session, const Object& application)
{
    const Answer count = session.read(application, "feAppCountModels", statusAnd({VT_I4}),
                                      list(Argument::out(VT_I4)));
    const Answer all =
        session.read(application, "feAppGetAllModels", statusAnd({VT_I4, arrayOf(VT_I4)}),
                     list(Argument::out(VT_I4), Argument::out(VT_VARIANT)));
    if (all.isDone() && all.filled[1].isArray())
        session.report.answer(Question::TypeOfModelIDs, typeText(all.filled[1].type()));
    const Answer active =
        session.read(application, "feAppGetModel", statusAnd({VT_I8}), list(Argument::out(VT_I8)));
    if (active.isDone())
        session.read(
            application, "feAppGetModelName", statusAnd({VT_BSTR}),
            list(Argument::longNumber(active.filled[0].raw().llVal), Argument::out(VT_BSTR)));
    if (!all.isDone() || all.filled[0].number() != 0)
        return;
    const Answer name = application.call("ModelName");
    session.report.answer(Question::ModelNameWithoutModel,
                          name.isDone() ? session.shown(name.value) : session.reason(name));
}

// A window tells which process is the FEMAP that was found.
void noteProcess(Session& session, long long window)
{
    DWORD process = 0;
    if (window != 0)
        GetWindowThreadProcessId(reinterpret_cast<HWND>(window), &process);
    if (process == 0)
        return;
    session.processes.insert(process);
    session.connection.watch.follow(session.processes);
    session.report.line("  its process", Verdict::Found, std::to_string(process));
}

void probeCounts(Session& session, const Object& application, const CountedKind& kind)
{
    session.report.begin("Info_Count, _ActiveID, _NextID of " + std::string(kind.word) + " (" +
                         std::to_string(kind.type) + ')');
    const Answer count = application.call("Info_Count", list(kind.type));
    const Answer active = application.call("Info_ActiveID", list(kind.type));
    const Answer next = application.call("Info_NextID", list(kind.type));
    for (const Answer* const each : {&count, &active, &next})
        if (!each->isDone()) {
            session.tell(verdictOfFailure(*each), session.reason(*each), *each);
            return;
        }
    const std::vector<int> ids = allIDs(application, static_cast<EntityType>(kind.type));
    const bool isSame = static_cast<int>(ids.size()) == count.value.number();
    session.tell(!kind.isOwn ? Verdict::Found
                 : isSame    ? Verdict::Same
                             : Verdict::Differs,
                 session.shown(count.value) + ", " + session.shown(active.value) + ", " +
                     session.shown(next.value) + "; AddAll gives " + shown(ids),
                 count);
}

// Whether other types than those declared are taken.
void probeArguments(Session& session, const Object& application)
{
    Answer answer = session.ask(application, "Info_Count", list(7.0));
    std::string text = answer.isDone() ? session.shown(answer) : session.reason(answer);
    session.tell(Verdict::Found, text, answer);
    session.report.answer(Question::TypesOfArguments, "R8 as index of Info_Count: " + text);
    answer = session.ask(application, "feAppGetAllModels",
                         list(Argument::out(VT_VARIANT), Argument::out(VT_VARIANT)));
    text = answer.isDone() ? session.shown(answer) : session.reason(answer);
    session.tell(Verdict::Found, text, answer);
    session.report.answer(Question::TypesOfArguments, "&VAR for &I4 of feAppGetAllModels: " + text);
}

}  // namespace

void probeApplication(Session& session, const Object& application, Generation generation)
{
    session.report.section("C1 The application");
    for (const PlainRead& read : plainReads) {
        if (read.isOfModern && generation == Generation::Classic)
            continue;
        const Answer answer = session.read(application, std::string(read.member), {read.type});
        if (read.member == "hMainWnd" && answer.isDone())
            noteProcess(session, static_cast<long long>(answer.value.real()));
        if (read.member == "ModelName")  // FEMAP's windows have it in their titles
            static_cast<void>(session.report.name(fileNameOf(answer.value.text())));
    }
    session.report.begin("Imodel.Visible");
    DISPID number = DISPID_UNKNOWN;
    const Answer visible = application.look("Visible", number);
    session.tell(visible.isDone() ? Verdict::Differs : Verdict::Same,
                 visible.isDone() ? "is there; believed: absent" : "absent, as believed", visible);
    probeModels(session, application);
    probeArguments(session, application);
    for (const CountedKind& kind : countedKinds)
        probeCounts(session, application, kind);
}

}  // namespace probe
