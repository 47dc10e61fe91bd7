#include "standin/ControlledApplication.h"

#include "standin/Server.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <iterator>

namespace standin
{

using femap::AddInPane;

namespace
{

using Control = ControlledApplication;
using library::Kind;

// clang-format off
constexpr Member<ControlledApplication> controlMembers[] = {
    {"standinSendEvent",     serve<&Control::sendEvent>},
    {"standinBusy",          serve<&Control::busy>},
    {"standinFailAt",        serve<&Control::failAt>},
    {"standinDieAt",         serve<&Control::dieAt>},
    {"standinPick",          serve<&Control::queueSelection>},
    {"standinModel",         serve<&Control::modelState>},
    {"standinQuit",          serve<&Control::quit>},
    {"standinWithdraw",      serve<&Control::withdraw>},
    {"standinRecord",        serve<&Control::recordTo>},
    {"standinFault",         serve<&Control::fault>},
    {"standinReject",        serve<&Control::reject>},
    {"standinDock",          serve<&Control::dock>},
    {"standinCallCount",     serve<&Control::callCount>},
    {"standinLockCount",     serve<&Control::lockCount>},
    {"standinObjectCount",   serve<&Control::objectCount>},
    {"standinMessages",      serve<&Control::messages>},
    {"standinRegistrations", serve<&Control::registrations>},
    {"standinDockHeard",     serve<&Control::dockHeard>},
    {"standinStallAt",       serve<&Control::stallAt>},
    {"standinModes",         serve<&Control::modes>},
    {"standinSuperseded",    serve<&Control::superseded>},
};

constexpr library::Member controls[] = {
    {"standinSendEvent",     Kind::Method,   90000, "i",  'i', library::all},
    {"standinBusy",          Kind::Method,   90001, "i",  'i', library::all},
    {"standinFailAt",        Kind::Method,   90002, "i",  'i', library::all},
    {"standinDieAt",         Kind::Method,   90003, "i",  'i', library::all},
    {"standinPick",          Kind::Method,   90004, "s",  'i', library::all},
    {"standinModel",         Kind::Method,   90005, "s",  'i', library::all},
    {"standinQuit",          Kind::Method,   90006, "",   'i', library::all},
    {"standinWithdraw",      Kind::Method,   90019, "",   'i', library::all},
    {"standinRecord",        Kind::Method,   90007, "s",  'i', library::all},
    {"standinFault",         Kind::Method,   90008, "ss", 'i', library::all},
    {"standinReject",        Kind::Method,   90009, "i",  'i', library::all},
    {"standinDock",          Kind::Method,   90015, "i",  'i', library::all},
    {"standinStallAt",       Kind::Method,   90016, "ii", 'i', library::all},
    {"standinCallCount",     Kind::Property, 90010, "",   'i', library::all},
    {"standinLockCount",     Kind::Property, 90011, "",   'i', library::all},
    {"standinObjectCount",   Kind::Property, 90012, "",   'i', library::all},
    {"standinMessages",      Kind::Property, 90013, "",   's', library::all},
    {"standinRegistrations", Kind::Property, 90014, "",   's', library::all},
    {"standinDockHeard",     Kind::Property, 90020, "",   'i', library::all},
    {"standinModes",         Kind::Property, 90017, "",   's', library::all},
    {"standinSuperseded",    Kind::Property, 90018, "",   's', library::all},
};
// clang-format on
static_assert(areDeclared(controlMembers, controls));

// FEMAP's and these.
constexpr auto allDeclared = [] {
    std::array<library::Member, std::size(library::Imodel) + std::size(controls)> all{};
    std::ranges::copy(controls, std::ranges::copy(library::Imodel, all.begin()).out);
    return all;
}();

}  // namespace

std::span<const library::Member> ControlledApplication::declared() const
{
    return allDeclared;
}

std::size_t ControlledApplication::memberCount() const
{
    return ApplicationObject::memberCount() + std::size(controlMembers);
}

std::string_view ControlledApplication::nameOf(std::size_t row) const
{
    const std::size_t own = ApplicationObject::memberCount();
    return row < own ? ApplicationObject::nameOf(row) : controlMembers[row - own].name;
}

bool ControlledApplication::canBePut(std::size_t row) const
{
    return row < ApplicationObject::memberCount() && ApplicationObject::canBePut(row);
}

Variant ControlledApplication::serve(std::size_t row, Arguments& arguments)
{
    const std::size_t own = ApplicationObject::memberCount();
    return row < own ? ApplicationObject::serve(row, arguments)
                     : controlMembers[row - own].serve(*this, arguments);
}

int ControlledApplication::sendEvent(int code)
{
    const auto& registrations = server().host.registrations;
    if (registrations.empty() || !registrations.back().regster)
        return failed;
    const UINT event = RegisterWindowMessageW(L"FE_EVENT_MESSAGE");
    const HWND window = reinterpret_cast<HWND>(registrations.back().messageID);
    const auto wide = static_cast<WPARAM>(code);
    if (server().modes[Mode::EventsSent]) {
        SendMessageW(window, event, wide, 0);
        return ok;
    }
    return PostMessageW(window, event, wide, 0) ? ok : failed;
}

int ControlledApplication::busy(int count)
{
    server().busyFor = count;
    return ok;
}

int ControlledApplication::reject(int count)
{
    server().rejectFor = count;
    return ok;
}

int ControlledApplication::failAt(int call)
{
    server().failAt = call;
    return ok;
}

int ControlledApplication::dieAt(int call)
{
    server().dieAt = call;
    return ok;
}

int ControlledApplication::stallAt(int call, int seconds)
{
    server().stallAt = call;
    server().stallSeconds = seconds;
    return ok;
}

int ControlledApplication::fault(const std::string& member, const std::string& how)
{
    return server().faults.set(member, how) ? ok : failed;
}

int ControlledApplication::queueSelection(const std::string& text)
{
    server().selections.queue(text);
    return ok;
}

int ControlledApplication::recordTo(const std::string& path)
{
    server().recordTo(path);
    return ok;
}

// Takes the form that registered itself last into a window; 0 takes that window away again.
int ControlledApplication::dock(int docks)
{
    dock_.reset();
    const auto& forms = server().host.registrations;
    if (docks != 0 && !forms.empty())
        dock_ = std::make_unique<DockWindow>(reinterpret_cast<HWND>(forms.back().windowID));
    return ok;
}

int ControlledApplication::dockHeard()
{
    return dock_ == nullptr ? 0 : dock_->heard();
}

int ControlledApplication::modelState(const std::string& state)
{
    if (state == "no-analysis-set") {
        server().host.activate(EntityType::AnalysisSet, 0);
        return ok;
    }
    if (state == "none")
        server().host.model.reset();
    else if (state != "untitled")
        return failed;
    else if (!server().host.model)
        server().host.model.emplace();
    server().host.modelName.clear();
    return ok;
}

// The names of those that are on, a line for each.
std::string ControlledApplication::modes()
{
    std::string result;
    for (const ModeName& one : modeNames)
        if (server().modes[one.mode])
            result += std::string(one.name) + '\n';
    return result;
}

std::string ControlledApplication::superseded()
{
    std::string result;
    for (const std::string& call : server().supersededCalls)
        result += call + '\n';
    return result;
}

int ControlledApplication::callCount()
{
    return server().callCount;
}

int ControlledApplication::lockCount()
{
    return server().host.lockCount;
}

int ControlledApplication::objectCount()
{
    return server().objectCount;
}

// A line for each: its colour and the text.
std::string ControlledApplication::messages()
{
    std::string result;
    for (const embedded::Host::Message& one : server().host.messages)
        result += std::to_string(static_cast<int>(one.colour)) + ' ' + one.text + '\n';
    return result;
}

// A line for each: the arguments in their order.
std::string ControlledApplication::registrations()
{
    std::string result;
    for (const AddInPane& pane : server().host.registrations)
        result += std::to_string(pane.regster) + ' ' + std::to_string(pane.windowID) + ' ' +
                  std::to_string(pane.messageID) + ' ' + std::to_string(pane.bPreventClose) + ' ' +
                  std::to_string(pane.bPreventHide) + ' ' + std::to_string(pane.location) + ' ' +
                  std::to_string(pane.neighborID) + '\n';
    return result;
}

int ControlledApplication::withdraw()
{
    server().withdrawClass();
    return ok;
}

// Not at once: the answer to this call is still on its way through COM's own threads, and the end
// of the apartment would break it off.
int ControlledApplication::quit()
{
    constexpr UINT answerTime = 100;  // milliseconds
    SetTimer(nullptr, 0, answerTime, [](HWND, UINT, UINT_PTR, DWORD) { PostQuitMessage(0); });
    return ok;
}

}  // namespace standin
