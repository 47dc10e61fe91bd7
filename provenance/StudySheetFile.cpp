#include "provenance/StudySheetFile.h"

#include "femap/NumberText.h"
#include "findings/FindingText.h"
#include "generate/ModelPath.h"
#include "generate/StudySheet.h"
#include "generate/TextFile.h"
#include "system/Json.h"

#include <functional>

namespace provenance
{

using form::Context;
using generate::TextFile;
using sys::quotedJson;

namespace
{

constexpr std::string_view nothing = "null";

std::string member(std::string_view name, std::string_view value)
{
    return quotedJson(name) + ':' + std::string(value);
}
std::string textMember(std::string_view name, std::string_view text)
{
    return member(name, quotedJson(text));
}

// What FEMAP refuses to tell, and what it does not have, is null.
std::string askedOfFemap(const std::function<double()>& ask)
{
    double answer = 0;
    sys::PendingError refused;
    refused.attempt([&] { answer = ask(); });
    return answer == 0 ? std::string(nothing) : femap::numberText(answer);
}

std::string sizeAndTime(const std::optional<sys::FileFacts>& facts)
{
    if (!facts)
        return member("size", nothing) + ',' + member("time", nothing);
    return member("size", std::to_string(facts->size)) + ',' +
           textMember("time", generate::utcText(facts->changed));
}

// One value of an array a line.
class List
{
public:
    List(TextFile& file, std::string_view name) : file_(file) { file_.line(member(name, "[")); }
    void add(std::string line)
    {
        if (!last_.empty())
            file_.line(last_ + ',');
        last_ = ' ' + std::move(line);
    }
    void end(std::string_view closing)
    {
        if (!last_.empty())
            file_.line(last_);
        file_.line(closing);
    }

private:
    TextFile& file_;
    std::string last_;
};

void writeHead(Context& context, TextFile& file, const std::string& modelFile,
               std::string_view toolVersion)
{
    file.line("{");
    file.line(textMember("tool", toolVersion) + ',');
    file.line(member("femap", askedOfFemap([&] { return context.femap().Info_Version(); })) + ',');
    file.line(member("model", "{" + textMember("path", modelFile) + ',' +
                                  sizeAndTime(context.system.files.facts(modelFile)) + "},"));
    const auto outputSet = [&] {
        return context.femap().Info_ActiveID(femap::EntityType::OutputSet);
    };
    file.line(member("outputSet", askedOfFemap(outputSet)) + ',');
}

void writeFiles(Context& context, TextFile& file, std::span<const std::string> paths)
{
    List list(file, "files");
    for (const std::string& path : paths)
        list.add("{" + textMember("name", path.substr(path.find_last_of(sys::pathSeparators) + 1)) +
                 ',' + sizeAndTime(context.system.files.facts(path)) + '}');
    list.end("],");
}

void writeFindings(TextFile& file, std::span<const findings::Finding> found)
{
    List list(file, "findings");
    for (const findings::Finding& finding : found)
        list.add(findings::jsonOf(finding));
    list.end("],");
}

void addRows(List& list, findings::Grid grid, const form::ParameterGrid& rows)
{
    for (const std::string& text : rows.rows()) {
        const form::ParameterRow row(text);
        if (row.name().empty())
            continue;
        std::string locator;
        for (int column = form::valueColumn + 1; column < rows.Cols(); ++column)
            locator.append(locator.empty() ? "" : ",").append(quotedJson(row.cell(column)));
        list.add("{" + textMember("grid", findings::wordOf(grid)) + ',' +
                 textMember("name", row.name()) + ',' + textMember("value", row.value()) + ',' +
                 member("locator", '[' + locator + ']') + '}');
    }
}

}  // namespace

void writeStudySheet(Context& context, const Circumstances& circumstances)
{
    const std::string modelFile = context.femap().ModelName();
    sys::System inUtf8 = sys::withCodePage(context.system, sys::utf8());
    TextFile file(inUtf8, context.log,
                  generate::targetPath(generate::splitModelPath(modelFile), generate::studySheet));
    writeHead(context, file, modelFile, circumstances.toolVersion);
    writeFiles(context, file, circumstances.files);
    writeFindings(file, circumstances.found);
    List rows(file, "rows");
    addRows(rows, findings::Grid::Inputs, context.form.InputsList);
    addRows(rows, findings::Grid::Outputs, context.form.OutputsList);
    rows.end("]");
    file.line("}");
    file.close();
}

}  // namespace provenance
