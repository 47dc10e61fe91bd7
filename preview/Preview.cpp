#include "preview/Preview.h"

#include "femap/ForwardingApplication.h"
#include "form/NoWindow.h"
#include "generate/GenerationDriver.h"
#include "preview/ComparedFiles.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace preview
{

namespace
{

constexpr std::string_view markWords[] = {"new", "changed", "same", "would-fail"};

// A FEMAP that answers, but is told nothing and shows nothing.
class QuietFemap : public femap::ForwardingApplication
{
public:
    using ForwardingApplication::ForwardingApplication;

    void feAppLock() override {}
    void feAppUnlock() override {}
    void feAppMessage(femap::MessageColour /*colour*/, const std::string& /*text*/) override {}
    void feAppStatusShow(bool /*enable*/, int /*maximum*/) override {}
    void feAppStatusUpdate(int /*current*/) override {}
};

// Another form with all that "Apply" goes by but the rows.
void takeChoices(form::MainForm& form, const form::MainForm& real)
{
    form.Solver.Text = real.Solver.Text;
    form.Optimizer.Text = real.Optimizer.Text;
    form.CommandLine.Text = real.CommandLine.Text;
    form.fileExtension = real.fileExtension;
    form.openModelExtension = real.openModelExtension;
    form.ownCommandLine = real.ownCommandLine;
    form.commandLineIsDue = real.commandLineIsDue;
    form.stored.knownFiles = real.stored.knownFiles;
}

/// A form, a log and a FEMAP to press "Apply" in, with nothing behind them.
class Rehearsal
{
public:
    Rehearsal(form::Context& real, sys::Files& files)
        : system_(sys::withDisk(real.system, files)), context_(form_, window_, system_)
    {
        takeChoices(form_, real.form);
        context_.grids = real.grids;
        if (real.application != nullptr)
            context_.application = std::make_unique<QuietFemap>(*real.application);
    }

    /// Returns what would be told in place of the result.
    std::string apply()
    {
        sys::PendingError ended;
        ended.attempt([&] { generate::GenerateButton_Click(context_); });
        return ended.isPending() ? ended.description() : form_.status.gravest();
    }

private:
    sys::System system_;
    form::NoWindow window_;
    form::MainForm form_;
    form::Context context_;
};

// The text of the file that is there; nothing where there is a file that is too long or unreadable.
std::optional<std::string> textBefore(sys::Files& files, const File& file)
{
    if (!file.sizeBefore)
        return std::string();
    std::string text;
    sys::PendingError unreadable;
    if (*file.sizeBefore > mostBytes ||
        !unreadable.attempt([&] { text = files.read(file.path); }) ||
        static_cast<std::size_t>(std::ranges::count(text, '\n')) > mostLines)
        return std::nullopt;
    return text;
}

}  // namespace

std::string_view wordOf(Mark mark)
{
    return markWords[static_cast<std::size_t>(mark)];
}

std::string_view File::name() const
{
    return std::string_view(path).substr(path.find_last_of(sys::pathSeparators) + 1);
}

const File* Preview::find(std::string_view name) const
{
    const auto found = std::ranges::find(files, name, &File::name);
    return found == files.end() ? nullptr : &*found;
}

const File* Preview::firstToLookAt() const
{
    const auto found =
        std::ranges::find_if(files, [](const File& file) { return file.mark != Mark::Same; });
    if (found != files.end())
        return &*found;
    return files.empty() ? nullptr : &files.front();
}

Preview previewOfApply(form::Context& context, std::string_view wantedName)
{
    ComparedFiles files(context.system.files, wantedName);
    Preview result;
    result.problem = Rehearsal(context, files).apply();
    result.files = files.files(result.problem);
    if (const std::string refusal = files.firstRefusal(); !refusal.empty())
        result.problem = refusal;

    const File* const wanted = result.find(wantedName);
    std::optional<std::string> after = files.takeWantedText();
    if (wanted == nullptr || !after)
        return result;
    if (std::optional<std::string> before = textBefore(context.system.files, *wanted))
        result.texts = {std::move(*before), std::move(*after)};
    return result;
}

}  // namespace preview
