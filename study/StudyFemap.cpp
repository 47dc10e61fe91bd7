#include "study/StudyFemap.h"

#include "femap/ForwardingApplication.h"
#include "femap/Value.h"

#include <string>
#include <utility>

namespace study
{

using femap::Application;

namespace
{

class StudyFemap : public femap::ForwardingApplication
{
public:
    StudyFemap(std::unique_ptr<Application> real, std::ostream& messages)
        : ForwardingApplication(std::move(real)), messages_(messages)
    {}

    void feAppMessage(femap::MessageColour colour, const std::string& text) override
    {
        ForwardingApplication::feAppMessage(colour, text);
        writeMessage(messages_, text);
    }

    int feAppRegisterAddInPane(const femap::AddInPane& /*pane*/) override
    {
        return static_cast<int>(femap::ReturnCode::Fail);
    }

private:
    std::ostream& messages_;
};

std::unique_ptr<Application> withEcho(std::unique_ptr<Application> real, std::ostream& messages)
{
    if (real == nullptr)
        return nullptr;
    return std::make_unique<StudyFemap>(std::move(real), messages);
}

}  // namespace

void writeMessage(std::ostream& messages, const std::string& text)
{
    messages << "FEMAP: " << femap::withoutControlCharacters(femap::cutToMessage(text)) << '\n';
}

std::unique_ptr<Application> StudyConnector::attach()
{
    return withEcho(real_.attach(), messages_);
}

std::unique_ptr<Application> StudyConnector::create()
{
    return withEcho(real_.create(), messages_);
}

}  // namespace study
