#include "loop/Former.h"

#include "femap/NumberText.h"
#include "loop/WholeFile.h"
#include "system/Json.h"
#include "system/RuntimeError.h"

#include <cmath>
#include <type_traits>
#include <utility>

namespace loop
{

using femap::Value;
using sys::JsonReader;
using sys::quotedJson;

namespace
{

constexpr std::string_view wholeWord = "whole";
constexpr std::string_view singleWord = "single";
constexpr std::string_view doubleWord = "double";

std::string texts(std::initializer_list<std::string> words)
{
    std::string list;
    for (const std::string& word : words)
        list.append(list.empty() ? "" : ",").append(quotedJson(word));
    return '[' + list + ']';
}

// The type of a number and its shortest digits.
std::string numberOf(const Value& value)
{
    return std::visit(
        [](const auto& number) -> std::string {
            using Number = std::decay_t<decltype(number)>;
            if constexpr (std::is_same_v<Number, std::int64_t>)
                return texts({std::string(wholeWord), femap::numberText(number)});
            else if constexpr (std::is_same_v<Number, float>)
                return texts({std::string(singleWord), femap::numberText(number)});
            else if constexpr (std::is_same_v<Number, double>)
                return texts({std::string(doubleWord), femap::numberText(number)});
            else
                throw std::logic_error("a former value is no number");
        },
        value);
}

std::string memberOf(const femap::MemberName& member)
{
    return texts({member.name, member.index ? std::to_string(*member.index) : ""});
}

std::string coordinates(const std::vector<double>& numbers)
{
    std::string list;
    for (const double number : numbers)
        list.append(list.empty() ? "" : ",").append(quotedJson(femap::numberText(number)));
    return '[' + list + ']';
}

/// Writes members of an object, each list one value a line.
class Writer
{
public:
    void member(std::string_view name, const std::string& json)
    {
        text_.append(text_.empty() ? "{\n" : ",\n").append(quotedJson(name)).append(":");
        text_.append(json);
    }
    template <class Each, class JsonOf>
    void list(std::string_view name, const std::vector<Each>& values, const JsonOf& jsonOf)
    {
        std::string json = "[";
        for (const Each& value : values)
            json.append(json.size() == 1 ? "\n" : ",\n").append(jsonOf(value));
        member(name, json + ']');
    }
    std::string text() const { return text_ + "\n}\n"; }

private:
    std::string text_;
};

std::string jsonOf(const femap::EntityValue& value)
{
    return '[' + texts({value.word, std::to_string(value.id)}) + ',' + memberOf(value.member) +
           ',' + numberOf(value.value) + ']';
}

std::string jsonOf(const femap::LoadValue& value)
{
    return '[' +
           texts({std::to_string(value.loadSet), std::to_string(value.definition),
                  std::to_string(value.load)}) +
           ',' + memberOf(value.member) + ',' + numberOf(value.value) + ']';
}

std::string jsonOf(const femap::FunctionValue& value)
{
    return '[' + texts({std::to_string(value.id)}) + ',' + coordinates(value.points.x) + ',' +
           coordinates(value.points.y) + ']';
}

/// Reads what Writer wrote. What is damaged is told at the end by isWhole.
class Reader
{
public:
    explicit Reader(std::string_view text) : json_(text) {}

    Former read()
    {
        Former result;
        json_.enterObject();
        while (const auto name = json_.nextName()) {
            if (*name == "model")
                result.model = text();
            else if (*name == "inputValues")
                result.inputValues = text();
            else if (*name == "dialogs")
                inList([&] { result.switches = {whole(), whole()}; });
            else if (*name == "entities")
                readAll(result.values.entities);
            else if (*name == "loads")
                readAll(result.values.loads);
            else if (*name == "functions")
                readAll(result.values.functions);
            else
                json_.skip();
        }
        return result;
    }

    bool isWhole() const { return !isDamaged_ && !json_.hasFailed(); }

private:
    template <class Each>
    void readAll(std::vector<Each>& values)
    {
        json_.enterArray();
        while (json_.hasNextValue())
            inList([&] { readEach(values.emplace_back()); });
    }
    void readEach(femap::EntityValue& value)
    {
        inNextList([&] {
            value.word = nextText();
            value.id = whole();
        });
        readMember(value.member);
        readNumber(value.value);
    }
    void readEach(femap::LoadValue& value)
    {
        inNextList([&] {
            value.loadSet = whole();
            value.definition = whole();
            value.load = static_cast<std::size_t>(whole());
        });
        readMember(value.member);
        readNumber(value.value);
    }
    void readEach(femap::FunctionValue& value)
    {
        inNextList([&] { value.id = whole(); });
        for (std::vector<double>* const numbers : {&value.points.x, &value.points.y}) {
            isDamaged_ |= !json_.hasNextValue() || !json_.enterArray();
            while (json_.hasNextValue())
                numbers->push_back(real(text()));
        }
        isDamaged_ |= value.points.x.size() != value.points.y.size();
    }
    void readMember(femap::MemberName& member)
    {
        inNextList([&] {
            member.name = nextText();
            const std::string index = nextText();
            if (!index.empty())
                member.index = wholeIn(index);
        });
    }
    void readNumber(Value& value)
    {
        inNextList([&] {
            const std::string type = nextText();
            const std::string digits = nextText();
            if (type == wholeWord)
                value = std::int64_t{wholeIn(digits)};
            else if (type == singleWord)
                value = static_cast<float>(real(digits));
            else if (type == doubleWord)
                value = real(digits);
            else
                isDamaged_ = true;
        });
    }

    // A list of which just so much is there.
    template <class Read>
    void inList(const Read& read)
    {
        isDamaged_ |= !json_.enterArray();
        read();
        isDamaged_ |= json_.hasNextValue();
    }
    template <class Read>
    void inNextList(const Read& read)
    {
        isDamaged_ |= !json_.hasNextValue();
        inList(read);
    }
    std::string text() { return orDamaged(json_.text()); }
    std::string nextText()
    {
        isDamaged_ |= !json_.hasNextValue();
        return text();
    }
    int whole() { return wholeIn(nextText()); }
    int wholeIn(const std::string& digits) { return orDamaged(femap::wholeNumber(digits)); }
    double real(const std::string& digits) { return orDamaged(femap::realNumber(digits)); }
    template <class Read>
    Read orDamaged(std::optional<Read> read)
    {
        isDamaged_ |= !read;
        return std::move(read).value_or(Read());
    }

    JsonReader json_;
    bool isDamaged_ = false;
};

}  // namespace

std::string formerFile(const std::string& modelName)
{
    return modelName + "Former.json";
}

void keepFormer(sys::System& system, const std::string& path, const Former& former)
{
    Writer json;
    json.member("model", quotedJson(former.model));
    if (former.inputValues)
        json.member("inputValues", quotedJson(system.codePage.decode(*former.inputValues)));
    if (former.switches)
        json.member("dialogs", texts({std::to_string(former.switches->dialogs),
                                      std::to_string(former.switches->messages)}));
    const auto jsonOfEach = [](const auto& value) { return jsonOf(value); };
    json.list("entities", former.values.entities, jsonOfEach);
    json.list("loads", former.values.loads, jsonOfEach);
    json.list("functions", former.values.functions, jsonOfEach);
    WholeFile file(system, path);
    file.write(json.text());
    file.close();
}

std::optional<Former> findFormer(sys::System& system, const std::string& path)
{
    if (!system.files.fileExists(path))
        return std::nullopt;
    const std::string text = system.files.read(path);
    Reader reader(text);
    Former former = reader.read();
    if (!reader.isWhole())
        throw sys::RuntimeError(sys::ErrorNumber::FileError,
                                "The former values that an earlier run left are damaged. See that "
                                "the model is as it should be, and remove the file: " +
                                    path);
    if (former.inputValues) {
        std::string bytes;
        system.codePage.encode(*former.inputValues, bytes);
        former.inputValues = std::move(bytes);
    }
    return former;
}

void forgetFormer(sys::System& system, const std::string& path)
{
    system.files.remove(path);
}

}  // namespace loop
