#include "fake/FormFixture.h"

#include "fake/LoggerFixture.h"
#include "fake/WatchedFemap.h"

#include <algorithm>

namespace fake
{

femap::Selection QueuedDialogs::answer(femap::EntityType type, const std::string& title,
                                       bool onlyOne, const std::vector<int>& available)
{
    asked.push_back({type, title, onlyOne, available});
    if (answers.empty())
        return {femap::ReturnCode::Cancel, {}};
    femap::Selection result = answers.front();
    answers.pop_front();
    return result;
}

bool pointersAreDefault(const form::MainForm& form)
{
    return std::ranges::all_of(form.controls(), [](const auto& each) {
        return each.control->MousePointer == form::pointerDefault;
    });
}

std::vector<std::string> Environment::messages() const
{
    std::vector<std::string> result;
    for (const femap::embedded::Host::Message& message : femap.messages)
        result.push_back(message.text);
    return result;
}

FormFixture::FormFixture()
{
    context.application = femap.attach();
    form.fileExtension = "neu";
    start(context.log, "ALWAYS", "test.log");
}

CallWatch& FormFixture::watchFemap()
{
    context.application = std::make_unique<WatchedFemap>(std::move(context.application), watch_);
    return watch_;
}

std::vector<std::string> FormFixture::log()
{
    context.log.flush();
    return files.lines(logPath("test.log"));
}

}  // namespace fake
