#include "standin/ApplicationObject.h"

#include "standin/EntityObject.h"
#include "standin/Objects.h"
#include "standin/Server.h"
#include "standin/SetObject.h"
#include "system/RuntimeError.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <iterator>

namespace standin
{

using femap::AddInPane;
using femap::cutToMessage;
using femap::MassProperties;
using femap::MessageColour;
using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

constexpr int cancelled = static_cast<int>(ReturnCode::Cancel);

using App = ApplicationObject;

// Makes a new object at each read of the property.
template <class Made>
Variant make(App& application, Arguments&)
{
    return Variant::owning(new Made(application.server()));
}

// clang-format off
constexpr Member<ApplicationObject> applicationMembers[] = {
    {"feSet",            make<SetObject>},
    {"feMatl",           make<EntityObject<neutral::Material>>},
    {"feProp",           make<EntityObject<neutral::Property>>},
    {"feNode",           make<EntityObject<neutral::Node>>},
    {"feElem",           make<EntityObject<neutral::Element>>},
    {"feFunction",       make<FunctionObject>},
    {"feOutputSet",      make<OutputSetObject>},
    {"feOutput",         make<OutputObject>},
    {"feLoadDefinition", make<LoadDefinitionObject>},
    {"feResults",        make<ResultsObject>},

    {"Info_Version",                          serve<&App::version>},
    {"ModelName",                             serve<&App::modelName>},
    {"Info_Count",                            serve<&App::countOf>},
    {"Info_NextID",                           serve<&App::nextIDOf>},
    {"Info_ActiveID",                         serve<&App::activeID>},
    {"feAppStatusShow",                       serve<&App::statusShow>},
    {"feAppStatusUpdate",                     serve<&App::statusUpdate>},
    {"feAppMessage",                          serve<&App::message>},
    {"feAppLock",                             serve<&App::lock>},
    {"feAppUnlock",                           serve<&App::unlock>},
    {"feFileOpen",                            serve<&App::fileOpen>},
    {"feMeasureMeshMassProp",                 serve<&App::measure>},
    {"feAppVisible",                          serve<&App::visible>},
    {"feAppGetAllModels",                     serve<&App::allModels>},
    {"feAppRegisterAddInPane",                serve<&App::registerAddInPane>},
    {"feOutputConvertV2019VectorIDToV2020V2", serve<&App::convertVectorID>},
    {"feOutputConvertV2020VectorIDToV2019V2", serve<&App::convertVectorID>},

    {"standinSendEvent",     serve<&App::sendEvent>},
    {"standinBusy",          serve<&App::busy>},
    {"standinFailAt",        serve<&App::failAt>},
    {"standinDieAt",         serve<&App::dieAt>},
    {"standinPick",          serve<&App::queueSelection>},
    {"standinModel",         serve<&App::modelState>},
    {"standinQuit",          serve<&App::quit>},
    {"standinRecord",        serve<&App::recordTo>},
    {"standinFault",         serve<&App::fault>},
    {"standinReject",        serve<&App::reject>},
    {"standinDock",          serve<&App::dock>},
    {"standinCallCount",     serve<&App::callCount>},
    {"standinLockCount",     serve<&App::lockCount>},
    {"standinObjectCount",   serve<&App::objectCount>},
    {"standinMessages",      serve<&App::messages>},
    {"standinRegistrations", serve<&App::registrations>},
};
// clang-format on

// Those of the stand-in's own are declared here.
constexpr library::Member controls[] = {
    {"standinSendEvent", library::Kind::Method, 90000, "i", 'i', library::all},
    {"standinBusy", library::Kind::Method, 90001, "i", 'i', library::all},
    {"standinFailAt", library::Kind::Method, 90002, "i", 'i', library::all},
    {"standinDieAt", library::Kind::Method, 90003, "i", 'i', library::all},
    {"standinPick", library::Kind::Method, 90004, "s", 'i', library::all},
    {"standinModel", library::Kind::Method, 90005, "s", 'i', library::all},
    {"standinQuit", library::Kind::Method, 90006, "", 'i', library::all},
    {"standinRecord", library::Kind::Method, 90007, "s", 'i', library::all},
    {"standinFault", library::Kind::Method, 90008, "ss", 'i', library::all},
    {"standinReject", library::Kind::Method, 90009, "i", 'i', library::all},
    {"standinCallCount", library::Kind::Property, 90010, "", 'i', library::all},
    {"standinLockCount", library::Kind::Property, 90011, "", 'i', library::all},
    {"standinObjectCount", library::Kind::Property, 90012, "", 'i', library::all},
    {"standinMessages", library::Kind::Property, 90013, "", 's', library::all},
    {"standinRegistrations", library::Kind::Property, 90014, "", 's', library::all},
    {"standinDock", library::Kind::Method, 90015, "i", 'i', library::all},
};

constexpr auto allDeclared = [] {
    std::array<library::Member, std::size(library::Imodel) + std::size(controls)> all{};
    std::ranges::copy(controls, std::ranges::copy(library::Imodel, all.begin()).out);
    return all;
}();
static_assert(areDeclared(applicationMembers, allDeclared));

// A message as FEMAP shows it, which takes per cent signs for format marks: two of them show one, a
// single one is lost with the character after it.
std::string formatted(const std::string& text)
{
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%')
            result += text[i];
        else if (++i < text.size() && text[i] == '%')
            result += '%';
    }
    return result;
}

}  // namespace

const std::span<const library::Member> ApplicationObject::declarations = allDeclared;

std::span<const Member<ApplicationObject>> ApplicationObject::members()
{
    return applicationMembers;
}

ULONG ApplicationObject::Release()
{
    const ULONG left = Object::Release();
    if (endsWithLastClient_ && left == 1)
        PostQuitMessage(0);
    return left;
}

std::string ApplicationObject::modelName()
{
    server().host.openModel();
    return server().host.modelName;
}

double ApplicationObject::version()
{
    return server().isClassic ? 11.2 : 23.06;
}

int ApplicationObject::activeID(EntityType type)
{
    return server().host.activeID(type);
}

int ApplicationObject::countOf(EntityType type)
{
    return static_cast<int>(server().host.idsOf(type).size());
}

int ApplicationObject::nextIDOf(EntityType type)
{
    const std::vector<int> ids = server().host.idsOf(type);
    return ids.empty() ? 1 : ids.back() + 1;
}

int ApplicationObject::visible(bool show)
{
    server().host.visible = show;
    return ok;
}

// FEMAP answers a file that it cannot read with a code, and says why in its message window.
int ApplicationObject::fileOpen(bool useDialog, const std::string& path)
{
    if (useDialog)
        return cancelled;
    try {
        server().host.openNeutralFile(path);
        return ok;
    }
    catch (const RuntimeError& error) {
        message(static_cast<int>(MessageColour::Error), error.description());
        return failed;
    }
}

int ApplicationObject::allModels(Arguments& arguments)
{
    const bool isOpen = server().host.model.has_value();
    arguments.fill(0, isOpen ? 1 : 0);
    if (isOpen)
        arguments.fillAny(1, std::vector<int>{1});
    return ok;
}

int ApplicationObject::lock()
{
    ++server().host.lockCount;
    return ok;
}

int ApplicationObject::unlock()
{
    int& count = server().host.lockCount;
    count = std::max(count - 1, 0);
    return ok;
}

int ApplicationObject::message(int colour, const std::string& text)
{
    server().host.messages.push_back(
        {static_cast<MessageColour>(colour), formatted(cutToMessage(text))});
    return ok;
}

int ApplicationObject::statusShow(bool enable, int maximum)
{
    server().host.statusMaximum = enable ? maximum : 0;
    server().host.statusCurrent = 0;
    return ok;
}

int ApplicationObject::statusUpdate(int current)
{
    server().host.statusCurrent = current;
    return ok;
}

int ApplicationObject::registerAddInPane(Arguments& a)
{
    server().host.registrations.push_back(
        {a.flag(0), a.number(1), a.number(2), a.flag(3), a.flag(4), a.number(5), a.number(6)});
    return ok;
}

int ApplicationObject::measure(Arguments& arguments)
{
    if (arguments.number(1) != 0)
        throw RuntimeError(ErrorNumber::InvalidCall,
                           "The stand-in measures in the global coordinate system only");
    const MassProperties mass =
        server().host.measure(server().idsIn(arguments.number(0), EntityType::Element));
    std::size_t index = 4;
    for (const double number : {mass.length, mass.area, mass.volume, mass.structuralMass,
                                mass.nonStructuralMass, mass.totalMass})
        arguments.fill(index++, number);
    for (const auto* const numbers :
         {&mass.structuralCG, &mass.nonStructuralCG, &mass.totalCG, &mass.inertia, &mass.inertiaCG})
        arguments.fillAny(index++, *numbers);
    return ok;
}

// The files that the stand-in reads have the numbering before 2020.1 already.
int ApplicationObject::convertVectorID(int id)
{
    return id;
}

int ApplicationObject::sendEvent(int code)
{
    const auto& registrations = server().host.registrations;
    if (registrations.empty() || !registrations.back().regster)
        return failed;
    const UINT event = RegisterWindowMessageW(L"FE_EVENT_MESSAGE");
    const HWND window = reinterpret_cast<HWND>(registrations.back().messageID);
    return PostMessageW(window, event, static_cast<WPARAM>(code), 0) ? ok : failed;
}

int ApplicationObject::busy(int count)
{
    server().busyFor = count;
    return ok;
}

int ApplicationObject::reject(int count)
{
    server().rejectFor = count;
    return ok;
}

int ApplicationObject::failAt(int call)
{
    server().failAt = call;
    return ok;
}

int ApplicationObject::dieAt(int call)
{
    server().dieAt = call;
    return ok;
}

int ApplicationObject::fault(const std::string& member, const std::string& how)
{
    return server().faults.set(member, how) ? ok : failed;
}

int ApplicationObject::queueSelection(const std::string& text)
{
    server().selections.queue(text);
    return ok;
}

int ApplicationObject::recordTo(const std::string& path)
{
    server().recordTo(path);
    return ok;
}

// Takes the form that registered itself last into a window; 0 takes that window away again.
int ApplicationObject::dock(int docks)
{
    dock_.reset();
    const auto& forms = server().host.registrations;
    if (docks != 0 && !forms.empty())
        dock_ = std::make_unique<DockWindow>(reinterpret_cast<HWND>(forms.back().windowID));
    return ok;
}

int ApplicationObject::modelState(const std::string& state)
{
    if (state == "none")
        server().host.model.reset();
    else if (state != "untitled")
        return failed;
    else if (!server().host.model)
        server().host.model.emplace();
    server().host.modelName.clear();
    return ok;
}

int ApplicationObject::callCount()
{
    return server().callCount;
}

int ApplicationObject::lockCount()
{
    return server().host.lockCount;
}

int ApplicationObject::objectCount()
{
    return server().objectCount;
}

// A line for each: its colour and the text.
std::string ApplicationObject::messages()
{
    std::string result;
    for (const embedded::Host::Message& one : server().host.messages)
        result += std::to_string(static_cast<int>(one.colour)) + ' ' + one.text + '\n';
    return result;
}

// A line for each: the arguments in their order.
std::string ApplicationObject::registrations()
{
    std::string result;
    for (const AddInPane& pane : server().host.registrations)
        result += std::to_string(pane.regster) + ' ' + std::to_string(pane.windowID) + ' ' +
                  std::to_string(pane.messageID) + ' ' + std::to_string(pane.bPreventClose) + ' ' +
                  std::to_string(pane.bPreventHide) + ' ' + std::to_string(pane.location) + ' ' +
                  std::to_string(pane.neighborID) + '\n';
    return result;
}

// Not at once: the answer to this call is still on its way through COM's own threads, and the end
// of the apartment would break it off.
int ApplicationObject::quit()
{
    constexpr UINT answerTime = 100;  // milliseconds
    SetTimer(nullptr, 0, answerTime, [](HWND, UINT, UINT_PTR, DWORD) { PostQuitMessage(0); });
    return ok;
}

}  // namespace standin
