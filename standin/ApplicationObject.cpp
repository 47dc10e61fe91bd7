#include "standin/ApplicationObject.h"

#include "standin/EntityObject.h"
#include "standin/Objects.h"
#include "standin/Server.h"
#include "standin/SetObject.h"
#include "system/RuntimeError.h"

#include <windows.h>

#include <algorithm>

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

using enum Type;
using App = ApplicationObject;

// Makes a new object at each read of the property.
template <class Made>
Variant make(App& application, Arguments&)
{
    return Variant::owning(new Made(application.server()));
}

constexpr Types paneArguments = {Bool, I4, I4, Bool, Bool, I4, I4};
constexpr Types measureArguments = {I4,    I4,    Bool,   Bool,   OutR8,  OutR8,  OutR8, OutR8,
                                    OutR8, OutR8, OutAny, OutAny, OutAny, OutAny, OutAny};

// clang-format off
constexpr Member<ApplicationObject> applicationMembers[] = {
    {{"feSet",            property, {}, 10000}, make<SetObject>},
    {{"feMatl",           property, {}, 10002}, make<EntityObject<neutral::Material>>},
    {{"feProp",           property, {}, 10003}, make<EntityObject<neutral::Property>>},
    {{"feNode",           property, {}, 10004}, make<EntityObject<neutral::Node>>},
    {{"feElem",           property, {}, 10005}, make<EntityObject<neutral::Element>>},
    {{"feFunction",       property, {}, 10022}, make<FunctionObject>},
    {{"feOutputSet",      property, {}, 10024}, make<OutputSetObject>},
    {{"feOutput",         property, {}, 10025, Generation::Classic}, make<OutputObject>},
    {{"feLoadDefinition", property, {}, 10350}, make<LoadDefinitionObject>},
    {{"feResults",        property, {}, 10520}, make<ResultsObject>},

    {{"Info_Version",     property, {},           10223}, serve<&App::version>},
    {{"ModelName",        property, {},           10258}, serve<&App::modelName>},
    {{"Info_Count",       property, {I4},         18008}, serve<&App::countOf>},
    {{"Info_NextID",      property, {I4},         18031}, serve<&App::nextIDOf>},
    {{"Info_ActiveID",    property, {I4},         18032}, serve<&App::activeID>},
    {{"feAppStatusShow",  method,   {Bool, I4},   20004}, serve<&App::statusShow>},
    {{"feAppStatusUpdate", method,  {I4},         20005}, serve<&App::statusUpdate>},
    {{"feAppMessage",     method,   {I4, Text},   20007}, serve<&App::message>},
    {{"feAppLock",        method,   {},           20008}, serve<&App::lock>},
    {{"feAppUnlock",      method,   {},           20009}, serve<&App::unlock>},
    {{"feFileOpen",       method,   {Bool, Text}, 20011}, serve<&App::fileOpen>},
    {{"feMeasureMeshMassProp", method, measureArguments, 20091}, serve<&App::measure>},
    {{"feAppVisible",     method,   {Bool},       20336}, serve<&App::visible>},
    {{"feAppGetAllModels", method,  {OutI4, OutAny}, 20350}, serve<&App::allModels>},
    {{"feAppRegisterAddInPane", method, paneArguments, 20351}, serve<&App::registerAddInPane>},
    {{"feOutputConvertV2019VectorIDToV2020V2", method, {I4}, 20667, Generation::Modern},
        serve<&App::convertVectorID>},
    {{"feOutputConvertV2020VectorIDToV2019V2", method, {I4}, 20669, Generation::Modern},
        serve<&App::convertVectorID>},

    {{"standinSendEvent",     method,   {I4},   90000}, serve<&App::sendEvent>},
    {{"standinBusy",          method,   {I4},   90001}, serve<&App::busy>},
    {{"standinFailAt",        method,   {I4},   90002}, serve<&App::failAt>},
    {{"standinDieAt",         method,   {I4},   90003}, serve<&App::dieAt>},
    {{"standinPick",          method,   {Text}, 90004}, serve<&App::queueSelection>},
    {{"standinModel",         method,   {Text}, 90005}, serve<&App::modelState>},
    {{"standinQuit",          method,   {},     90006}, serve<&App::quit>},
    {{"standinRecord",        method,   {Text}, 90007}, serve<&App::recordTo>},
    {{"standinFault",         method,   {Text, Text}, 90008}, serve<&App::fault>},
    {{"standinReject",        method,   {I4},   90009}, serve<&App::reject>},
    {{"standinDock",          method,   {I4},   90015}, serve<&App::dock>},
    {{"standinCallCount",     property, {},     90010}, serve<&App::callCount>},
    {{"standinLockCount",     property, {},     90011}, serve<&App::lockCount>},
    {{"standinObjectCount",   property, {},     90012}, serve<&App::objectCount>},
    {{"standinMessages",      property, {},     90013}, serve<&App::messages>},
    {{"standinRegistrations", property, {},     90014}, serve<&App::registrations>},
};
// clang-format on
static_assert(hasOneOfEach(applicationMembers));

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
