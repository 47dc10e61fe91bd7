#include "probe/Dialogs.h"

#include "probe/Sets.h"

namespace probe
{

namespace
{

void showDialog(Session& session, const Object& application, bool isLocked, std::ostream& said)
{
    const std::string how = isLocked ? "while FEMAP is locked" : "while FEMAP is not locked";
    const FemapSet set = setOf(application, {});
    said << "FEMAP shows a selection dialog, " << how << ". Pick a node or two and press OK.\n"
         << std::flush;
    session.report.begin("a selection dialog " + how);
    const Answer answer =
        set.object.call("Select", list(static_cast<int>(femap::EntityType::Node), true,
                                       "velmar-study: pick a node or two, then OK"));
    const int count = set.object.call("Count").value.number();
    const bool isOk = answer.isOk() && count > 0;
    const std::string text = (answer.isDone() ? "status " + std::to_string(answer.value.number()) +
                                                    ", " + std::to_string(count) + " picked"
                                              : session.reason(answer));
    session.tell(isOk               ? Verdict::Same
                 : !answer.isDone() ? Verdict::Refused
                                    : Verdict::Found,
                 text, answer);
    session.report.answer(Question::DialogWhileLocked, how + ": " + text);
}

}  // namespace

void probeDialogs(Session& session, const Object& application, std::ostream& said)
{
    session.report.section("D Selection dialogs");
    showDialog(session, application, false, said);
    session.read(application, "feAppLock", statusAnd());
    showDialog(session, application, true, said);
    session.read(application, "feAppUnlock", statusAnd());
}

}  // namespace probe
