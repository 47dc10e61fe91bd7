// The files of the model host: models and results that it reads, decks that it writes.
#include "femap/embedded/Deck.h"
#include "femap/embedded/Host.h"
#include "femap/neutral/NeutralFile.h"
#include "system/CodePage.h"
#include "system/Platform.h"
#include "system/RuntimeError.h"
#include "system/System.h"

#include <algorithm>
#include <climits>
#include <memory>
#include <new>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <utility>

namespace femap::embedded
{

using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

constexpr std::string_view endingOfResults = ".results.neu";
constexpr int lastBrand = 8;  // of the solvers that write and read in Nastran's way

bool isBrand(int number)
{
    return number >= 0 && number <= lastBrand;
}

std::string fullPathOf(const std::string& path)
{
    std::error_code reason;
    std::string full = sys::fullPath(path, reason);
    if (reason)  // such as a working folder that was removed
        throw RuntimeError(ErrorNumber::PathNotFound,
                           path + " has no full path: " + reason.message());
    return full;
}

[[noreturn]] void refuseAsTooLarge(const std::string& path)
{
    throw RuntimeError(ErrorNumber::FileError,
                       "The memory is too small for the model; export it with fewer results, or "
                       "close other programs: " +
                           path);
}

/// Returns what the reader remarks.
std::vector<std::string> readInto(Model& model, const std::string& path)
{
    try {
        const std::string content = sys::thisMachine().files.read(path);
        return readNeutralFile(content, path, sys::windows1252(), model);
    }
    catch (const std::bad_alloc&) {
        refuseAsTooLarge(path);
    }
    catch (const std::length_error&) {  // a file of more bytes than there are addresses
        refuseAsTooLarge(path);
    }
}

// The neutral file that lies beside a file of results; it may be named itself.
std::string resultsBeside(const std::string& path)
{
    if (path.ends_with(endingOfResults))
        return path;
    const std::size_t name = path.find_last_of(sys::pathSeparators) + 1;
    const std::size_t point = path.rfind('.');
    const bool hasEnding = point != std::string::npos && point > name;
    return path.substr(0, hasEnding ? point : path.size()) + std::string(endingOfResults);
}

}  // namespace

void Host::openNeutralFile(const std::string& path)
{
    if (path.empty())
        throw RuntimeError(ErrorNumber::FileNotFound, "No model file was named");
    std::string fullPath = fullPathOf(path);
    Model opened;
    const std::vector<std::string> remarks = readInto(opened, fullPath);
    model = std::move(opened);
    modelName = std::move(fullPath);
    isModified = false;
    activeAnalysisSet = analysisSet;
    told_.clear();
    tell(remarks);
}

void Host::importNeutralFile(const std::string& path)
{
    const std::vector<std::string> remarks = readInto(openModel(), path);
    told_.clear();
    tell(remarks);
}

ReturnCode Host::feFileWriteNastran(int brand, const std::string& path)
{
    const Model& open = openModel();
    if (!isBrand(brand))
        return ReturnCode::BadData;
    if (path.empty())
        return ReturnCode::NoFileName;
    if (activeAnalysisSet == 0)
        return ReturnCode::Fail;
    try {
        const auto file = sys::thisMachine().files.create(fullPathOf(path));
        file->write("$ Deck of the model host for brand " + std::to_string(brand) + '\n');
        writeDeck(open, [&](const std::string& lines) { file->write(lines); });
        file->close();
    }
    catch (const RuntimeError& error) {
        showMessage(MessageColour::Error, error.description());
        return ReturnCode::FileWriteFailed;
    }
    return ReturnCode::Ok;
}

ReturnCode Host::feFileReadNastranResults(int brand, const std::string& path)
{
    Model& open = openModel();
    if (!isBrand(brand))
        return ReturnCode::BadData;
    if (path.empty())
        return ReturnCode::NoFileName;
    Model results;
    try {
        const std::string fullPath = fullPathOf(path);
        if (!sys::thisMachine().files.fileExists(fullPath))
            return ReturnCode::FileOpenFailed;
        tell(readInto(results, resultsBeside(fullPath)));
    }
    catch (const RuntimeError& error) {
        showMessage(MessageColour::Error, error.description());
        return ReturnCode::BadData;
    }
    const int last = open.outputSets.empty() ? 0 : open.outputSets.ids().back();
    if (results.outputSets.empty() || last > INT_MAX - static_cast<int>(results.outputSets.size()))
        return ReturnCode::BadData;
    int id = last;
    for (OutputSet& set : results.outputSets) {
        set.id = ++id;
        open.outputSets.put(std::move(set));
    }
    isModified = true;
    if (activatesResults)
        open.activeOutputSet = last + 1;
    return ReturnCode::Ok;
}

ReturnCode Host::feDelete(EntityType type, const std::vector<int>& ids)
{
    if (type != EntityType::OutputSet)
        return ReturnCode::NotAvailable;
    Model& open = openModel();
    ReturnCode result = ReturnCode::NotExist;
    for (const int id : ids)
        if (open.outputSets.remove(id)) {
            isModified = true;
            result = ReturnCode::Ok;
        }
    if (open.outputSets.find(open.activeOutputSet) == nullptr)
        open.activeOutputSet = 0;
    return result;
}

ReturnCode Host::feDeleteOutput(int outputSet, const std::vector<int>& vectors)
{
    OutputSet* const set = openModel().outputSets.find(outputSet);
    ReturnCode result = ReturnCode::NotExist;
    for (const int id : vectors)
        if (set != nullptr && set->vectors.remove(id)) {
            isModified = true;
            result = ReturnCode::Ok;
        }
    return result;
}

}  // namespace femap::embedded
