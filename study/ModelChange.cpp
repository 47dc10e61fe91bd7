#include "study/ModelChange.h"

#include "femap/NumberText.h"
#include "system/PendingError.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

namespace study
{

using femap::neutral::Model;

namespace
{

constexpr std::string_view entityWords[] = {"Node", "Elem", "Prop", "Matl"};
constexpr std::string_view outputWord = "Output";

constexpr std::string_view putCure =
    "; put takes Node, Elem, Prop or Matl with ID MEMBER [INDEX] VALUE, or Output with VECTOR "
    "ENTITY VALUE";
constexpr std::string_view activateCure = "; activate takes LoadSet or OutputSet with an ID";

// Takes the words of one line one by one.
class Words
{
public:
    /// cure ends each message: what the action takes.
    Words(const ScriptLine& line, std::string_view cure)
        : line_(line.number), rest_(line.argument), cure_(cure)
    {}

    std::string word(const std::string& what)
    {
        if (rest_.empty())
            failWithCure("the " + what + " is missing");
        return takeWord(rest_);
    }

    int number(const std::string& what, int least)
    {
        const std::string text = word(what);
        const auto result = femap::wholeNumber(text);
        if (!result || *result < least)
            failWithCure("the " + what + " \"" + text + "\" is no whole number from " +
                         std::to_string(least) + " on");
        return *result;
    }

    // All that is left.
    std::string text(const std::string& what)
    {
        if (rest_.empty())
            word(what);
        return std::string(rest_);
    }

    double real(const std::string& what)
    {
        const std::string value = text(what);
        double result = 0;
        const char* const end = value.data() + value.size();
        const auto [stop, error] = std::from_chars(value.data(), end, result);
        if (error != std::errc() || stop != end || !std::isfinite(result))
            fail("the " + what + " \"" + value + "\" is no number; write it as 12.5 or 1.5E-05");
        return result;
    }

    [[noreturn]] void fail(const std::string& what) const { throw ScriptError(line_, what); }
    [[noreturn]] void failWithCure(const std::string& what) const
    {
        fail(what + std::string(cure_));
    }

private:
    int line_;
    std::string_view rest_;
    std::string_view cure_;
};

void changeEntity(Model& model, const std::string& kind, Words& words)
{
    const int id = words.number("ID", 1);
    const std::string member = words.word("member");
    const bool isArray = femap::embedded::isArrayMember(kind, member);
    const int index = isArray ? words.number("index", 0) : -1;
    femap::embedded::putMember(model, kind, id, member, index, words.text("value"));
}

void changeOutput(Model& model, Words& words)
{
    const int vector = words.number("vector", 1);
    const int entity = words.number("entity", 1);
    femap::embedded::putOutputValue(model, vector, entity, words.real("value"));
}

template <class Sets>
void activate(const Sets& sets, int& active, Words& words)
{
    const int id = words.number("ID", 1);
    if (sets.find(id) == nullptr)
        words.fail("the model has no such set: " + std::to_string(id));
    active = id;
}

// Runs a step. Raises ScriptError for the line when the model host refuses it.
template <class Step>
void blamingLine(const Words& words, Step&& step)
{
    sys::PendingError refused;
    if (!refused.attempt(std::forward<Step>(step)))
        words.fail(refused.description());
}

}  // namespace

void openModel(femap::embedded::Host& host, OpenModels& behind, const ScriptLine& line)
{
    Words words(line, "; open takes the file of a model");
    const std::string path = words.text("file");
    std::optional<Model> current = host.model;
    std::string currentFile = host.modelName;
    blamingLine(words, [&] { host.openNeutralFile(path); });
    if (current && currentFile != host.modelName)
        behind.emplace_back(*std::move(current), std::move(currentFile));
}

void closeModel(femap::embedded::Host& host, OpenModels& behind, const ScriptLine& line)
{
    if (!line.argument.empty())
        throw ScriptError(line.number, "closemodel takes nothing after it");
    host.model.reset();
    host.modelName.clear();
    if (behind.empty())
        return;
    std::tie(host.model, host.modelName) = std::move(behind.back());
    behind.pop_back();
}

void changeModel(femap::embedded::Host& host, const ScriptLine& line)
{
    Words words(line, putCure);
    blamingLine(words, [&] {
        const std::string kind = words.word("kind");
        if (kind == outputWord)
            changeOutput(host.openModel(), words);
        else if (std::ranges::find(entityWords, kind) != std::end(entityWords))
            changeEntity(host.openModel(), kind, words);
        else
            words.failWithCure('"' + kind + "\" cannot be changed");
    });
}

void activateSet(femap::embedded::Host& host, const ScriptLine& line)
{
    Words words(line, activateCure);
    blamingLine(words, [&] {
        Model& model = host.openModel();
        const std::string kind = words.word("kind");
        if (kind == "LoadSet")
            activate(model.loadSets, model.activeLoadSet, words);
        else if (kind == "OutputSet")
            activate(model.outputSets, model.activeOutputSet, words);
        else
            words.failWithCure('"' + kind + "\" cannot be activated");
    });
}

}  // namespace study
