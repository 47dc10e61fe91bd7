#include "generate/Targets.h"

#include "generate/LinePieces.h"
#include "system/PatientFiles.h"

namespace generate
{

namespace
{

using sys::RuntimeError;

constexpr std::string_view modelSlot = "@model@";

// Tells why nothing happens as long as it lives.
class Waiting
{
public:
    explicit Waiting(form::Context& context) : context_(context) {}
    ~Waiting()
    {
        if (isTold_)
            context_.form.status.showWaiting("");
    }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

    void tell()
    {
        if (isTold_)
            return;
        isTold_ = true;
        context_.form.status.showWaiting(
            "Another \"Apply\" writes in the same folder. Waiting for it …");
        context_.host.showProgress();
    }

private:
    form::Context& context_;
    bool isTold_ = false;
};

std::unique_ptr<sys::FolderLock> lockFolder(form::Context& context, const std::string& folder)
{
    constexpr int tries = 30;  // a tenth of a second each
    Waiting waiting(context);
    try {
        return sys::retriedWhileDenied(
            [&](std::chrono::milliseconds pause) {
                waiting.tell();
                if (context.system.wait)
                    context.system.wait(pause);
            },
            [&] { return context.system.files.lockFolder(folder); }, tries);
    }
    catch (const RuntimeError& held) {
        throw RuntimeError(held.number(),
                           "Another \"Apply\" writes in the same folder: " + held.description() +
                               ". Try again when it has ended. Folder: " + folder);
    }
}

}  // namespace

std::string targetPath(const ModelPath& model, Target target)
{
    const std::size_t slot = target.find(modelSlot);
    if (slot == Target::npos)
        return concatenated({model.folder, target});
    return concatenated(
        {model.folder, target.substr(0, slot), model.name, target.substr(slot + modelSlot.size())});
}

TextFile openTarget(form::Context& context, const ModelPath& model, Target target)
{
    return TextFile(context.system, context.log, targetPath(model, target));
}

std::unique_ptr<sys::FolderLock> prepareTargets(form::Context& context, const ModelPath& model,
                                                std::span<const Target> targets)
{
    std::unique_ptr<sys::FolderLock> lock = lockFolder(context, model.folder);
    const auto demand = [&](Target target) {
        TextFile::demandReplaceable(context.system, targetPath(model, target));
    };
    for (const Target target : targets)
        demand(target);
    demand(controlFile);
    return lock;
}

}  // namespace generate
