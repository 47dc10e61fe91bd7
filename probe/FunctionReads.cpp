// The points of a function.
#include "probe/Reads.h"
#include "probe/Sets.h"

namespace probe
{

void probeFunction(Session& session, const Object& application)
{
    session.report.section("C6 A function");
    const std::vector<int> ids = allIDs(application, femap::EntityType::Function);
    if (ids.empty()) {
        session.report.line("feFunction", Verdict::NotTried, "the model has no function");
        return;
    }
    const Object function = application.object("feFunction");
    session.read(function, "Get", statusAnd(), list(ids.front()));
    session.read(function, "title", {VT_BSTR});
    session.read(function, "type", {VT_I4});
    const Answer points = session.read(
        function, "GetFunctionList", statusAnd({VT_I4, arrayOf(VT_R8), arrayOf(VT_R8)}),
        list(Argument::out(VT_I4), Argument::out(VT_VARIANT), Argument::out(VT_VARIANT)));
    if (!points.isOk())
        return;
    const std::vector<double> x = points.filled[1].numbers();
    const bool isWhole = static_cast<int>(x.size()) == points.filled[0].number() &&
                         x.size() == points.filled[2].numbers().size();
    session.report.line("  its points", isWhole ? Verdict::Same : Verdict::Differs,
                        isWhole ? "count and arrays agree" : "count and arrays have other lengths");
}

}  // namespace probe
