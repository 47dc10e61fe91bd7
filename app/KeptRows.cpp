#include "app/KeptRows.h"

#include "system/FileKey.h"
#include "system/RuntimeError.h"

#include <algorithm>
#include <charconv>
#include <span>
#include <utility>

namespace app
{

using form::MainForm;

namespace
{

// The file: this line, the model, then for each grid the number of its rows and the rows. What
// would end a line is written with a backslash.
constexpr std::string_view firstLine = "Velmar-Femap Interface: rows that are not applied";
constexpr std::string_view lastLine = "end";

constexpr int places = 9;  // runs of one model at a time
constexpr std::size_t largeStudy = 20'000;
constexpr double secondsBetween = 10;
constexpr std::size_t pieceSize = 1 << 20;

constexpr std::string_view lockEnding = ".lock";
constexpr std::string_view rowsEnding = ".rows";
constexpr std::string_view leftEnding = ".left";
constexpr std::string_view partEnding = ".part";

std::string with(const std::string& place, std::string_view ending)
{
    return std::string(place).append(ending);
}

void addEscaped(std::string& text, std::string_view line)
{
    for (const char each : line)
        switch (each) {
        case '\n':
            text += "\\n";
            break;
        case '\\':
            text += "\\\\";
            break;
        default:
            text += each;
        }
    text += '\n';
}

std::string unescaped(std::string_view line)
{
    std::string text;
    text.reserve(line.size());
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] != '\\' || i + 1 == line.size()) {
            text += line[i];
            continue;
        }
        ++i;
        text += line[i] == 'n' ? '\n' : line[i];
    }
    return text;
}

std::optional<std::string_view> takeLine(std::string_view& rest)
{
    const std::size_t end = rest.find('\n');
    if (end == std::string_view::npos)
        return std::nullopt;
    const std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end + 1);
    return line;
}

bool takeRows(std::string_view& rest, std::vector<std::string>& rows)
{
    const std::optional<std::string_view> count = takeLine(rest);
    std::size_t number = 0;
    if (!count)
        return false;
    const char* const end = count->data() + count->size();
    if (const auto [last, error] = std::from_chars(count->data(), end, number);
        error != std::errc() || last != end)
        return false;
    for (; number > 0; --number) {
        const std::optional<std::string_view> line = takeLine(rest);
        if (!line)
            return false;
        rows.push_back(unescaped(*line));
    }
    return true;
}

}  // namespace

std::optional<RowTexts> readKeptRows(std::string_view text, std::string_view modelFile)
{
    RowTexts rows;
    if (takeLine(text) != firstLine)
        return std::nullopt;
    const std::optional<std::string_view> model = takeLine(text);
    if (!model || unescaped(*model) != modelFile || !takeRows(text, rows.inputs) ||
        !takeRows(text, rows.outputs) || takeLine(text) != lastLine)
        return std::nullopt;
    return rows;
}

KeptRows::KeptRows(sys::System& system, std::string folder)
    : system_(system), folder_(std::move(folder))
{}

KeptRows::~KeptRows()
{
    letGo();
}

bool KeptRows::follow(const MainForm& form)
{
    return keep(form, false);
}

void KeptRows::finish(const MainForm& form)
{
    keep(form, true);
    letGo();
}

RowTexts KeptRows::left() const
{
    const std::string path = with(place_, leftEnding);
    std::optional<RowTexts> rows = readKeptRows(system_.files.read(path), modelFile_);
    if (!rows)
        throw sys::RuntimeError(sys::ErrorNumber::FileError,
                                "the kept rows have been changed: " + path);
    return *std::move(rows);
}

bool KeptRows::keep(const MainForm& form, bool atOnce)
{
    // A model that was never saved has no name under which its rows could be found again.
    if (isOff_ || !form.openModel || form.openModel->empty())
        return false;
    try {
        const bool isOther = *form.openModel != modelFile_;
        if (isOther)
            changeModel(form);
        isDue_ |= !isUnchanged(form);
        const std::size_t rows = form.InputsList.rows().size() + form.OutputsList.rows().size();
        const bool isSoon = isWritten_ && rows > largeStudy && !atOnce &&
                            system_.monotonicSeconds() < writtenAt_ + secondsBetween;
        if (isDue_ && !isSoon)
            write(form);
        return isOther && leftCount_ > 0;
    }
    catch (const sys::RuntimeError&) {
        isOff_ = true;
        throw;
    }
}

bool KeptRows::isUnchanged(const MainForm& form)
{
    const auto sawLast = [](std::uint64_t& seen, std::uint64_t now) {
        return std::exchange(seen, now) == now;
    };
    const bool inputs = sawLast(inputs_, form.InputsList.changes());
    const bool outputs = sawLast(outputs_, form.OutputsList.changes());
    const bool applied = applied_ == form.stored.applied.changes();
    return inputs && outputs && applied;
}

void KeptRows::changeModel(const MainForm& form)
{
    letGo();
    modelFile_ = *form.openModel;
    for (std::size_t end = 0;
         (end = folder_.find_first_of(sys::pathSeparators, end + 1)) != std::string::npos;) {
        const std::string folder = folder_.substr(0, end);
        if (!system_.files.folderExists(folder))
            system_.files.createFolder(folder);
    }
    takePlace(sys::keyOfFile(modelFile_));
    findLeft(form);
    isUnchanged(form);
    applied_ = form.stored.applied.changes();
    isDue_ = true;
}

// A place that another run has cannot be locked. Of the others one with rows is taken first: the
// run that left them has ended.
void KeptRows::takePlace(const std::string& key)
{
    const auto anyFile = [](std::string_view) { return true; };
    const auto isLeftIn = [&](const std::string& place) {
        return system_.files.fileExists(with(place, rowsEnding)) ||
               system_.files.fileExists(with(place, leftEnding));
    };
    std::string reason;
    for (const bool withRows : {true, false})
        for (int number = 1; number <= places; ++number) {
            const std::string place = folder_ + key + '-' + std::to_string(number);
            if (isLeftIn(place) != withRows)
                continue;
            try {
                lock_ = system_.files.openAlone(with(place, lockEnding), anyFile);
                place_ = place;
                return;
            }
            catch (const sys::RuntimeError& error) {
                if (error.number() != sys::ErrorNumber::PermissionDenied)
                    throw;
                reason = error.description();
            }
        }
    throw sys::RuntimeError(sys::ErrorNumber::PermissionDenied, reason);
}

void KeptRows::letGo()
{
    if (lock_ == nullptr)
        return;
    lock_.reset();
    try {
        system_.files.remove(with(place_, lockEnding));
    }
    catch (const sys::RuntimeError&) {
        // An empty file stays, which the next run takes.
    }
    leftCount_ = 0;
    isWritten_ = false;
}

void KeptRows::findLeft(const MainForm& form)
{
    const std::string rows = with(place_, rowsEnding);
    const std::string left = with(place_, leftEnding);
    if (system_.files.fileExists(rows))
        system_.files.replace(left, rows);
    if (!system_.files.fileExists(left))
        return;
    std::optional<RowTexts> texts = readKeptRows(system_.files.read(left), modelFile_);
    if (texts) {
        form::ParameterGrid inputs(form.InputsList.Cols());
        form::ParameterGrid outputs(form.OutputsList.Cols());
        inputs.replaceRows(std::move(texts->inputs));
        outputs.replaceRows(std::move(texts->outputs));
        leftCount_ = form.stored.applied.compare(modelFile_, inputs, outputs).notApplied;
    }
    if (leftCount_ == 0)
        system_.files.remove(left);
}

void KeptRows::write(const MainForm& form)
{
    isDue_ = false;
    const std::string path = with(place_, rowsEnding);
    const bool isAllApplied =
        form.stored.applied.compare(modelFile_, form.InputsList, form.OutputsList).notApplied == 0;
    if (isAllApplied && applied_ != form.stored.applied.changes()) {
        // "Apply" decided; what an earlier run left is no longer wanted.
        system_.files.remove(with(place_, leftEnding));
        leftCount_ = 0;
    }
    applied_ = form.stored.applied.changes();
    if (isAllApplied) {
        system_.files.remove(path);
        return;
    }
    // Nobody else writes here while this run has the place.
    const std::string part = with(place_, partEnding);
    const std::unique_ptr<sys::OutputFile> file = system_.files.create(part);
    std::string text = std::string(firstLine) + '\n';
    addEscaped(text, modelFile_);
    for (const form::ParameterGrid* const grid : {&form.InputsList, &form.OutputsList}) {
        text += std::to_string(grid->rows().size()) + '\n';
        for (const std::string& row : grid->rows()) {
            addEscaped(text, row);
            if (text.size() < pieceSize)
                continue;
            file->write(text);
            text.clear();
        }
    }
    file->write(text.append(lastLine) + '\n');
    file->close();
    system_.files.replace(path, part);
    isWritten_ = true;
    writtenAt_ = system_.monotonicSeconds();
}

}  // namespace app
