#include "loop/Session.h"

#include "system/Platform.h"
#include "system/RuntimeError.h"

#include <system_error>
#include <utility>

namespace loop
{

using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

// Null while none runs.
std::unique_ptr<femap::Application> attached(femap::Connector& connector)
{
    sys::PendingError doesNotRun;
    std::unique_ptr<femap::Application> femap;
    try {
        doesNotRun.attempt([&] { femap = connector.attach(); });
    }
    catch (const femap::ConnectionLost&) {  // it ends just now
        return nullptr;
    }
    return femap;
}

bool hasOpen(femap::Application& femap, const std::string& model)
{
    std::string open;
    sys::PendingError noModel;
    noModel.attempt([&] { open = femap.ModelName(); });
    return !open.empty() && sys::foldedPath(open) == sys::foldedPath(model);
}

std::unique_ptr<femap::Application> withModel(femap::Connector& connector, const std::string& model)
{
    std::unique_ptr<femap::Application> femap = attached(connector);
    if (femap != nullptr && hasOpen(*femap, model))
        return femap;
    femap.reset();
    femap = connector.create();
    if (femap == nullptr)
        throw RuntimeError(ErrorNumber::ObjectFailed, "FEMAP could not be started");
    if (femap->feFileOpen(false, model) != femap::ReturnCode::Ok)
        throw RuntimeError(ErrorNumber::ObjectFailed, "FEMAP cannot open the model: " + model);
    return femap;
}

}  // namespace

std::string fullPath(const std::string& path)
{
    std::error_code reason;
    std::string full = sys::fullPath(path, reason);
    if (reason)
        throw RuntimeError(ErrorNumber::PathNotFound,
                           path + " has no full path: " + reason.message());
    return full;
}

Session::Session(sys::System& system, Connection connection, const std::string& model)
    : connection_(std::move(connection)), context_(form_, window_, system)
{
    context_.application = withModel(*connection_.connector, fullPath(model));
}

}  // namespace loop
