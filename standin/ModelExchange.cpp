// What of the stand-in's application takes values out of the model and results into it: decks,
// results, and their end.
#include "femap/embedded/ModelDifference.h"
#include "femap/embedded/NeutralPatch.h"
#include "femap/neutral/NeutralFile.h"
#include "standin/ApplicationObject.h"
#include "standin/Server.h"
#include "system/Platform.h"
#include "system/RuntimeError.h"
#include "system/System.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

namespace standin
{

using femap::Selection;

namespace
{

// What a FEMAP leaves that does not come to the end of a file.
void cutInHalf(const std::string& path)
{
    std::error_code reason;
    const std::filesystem::path file = sys::toPath(path);
    std::filesystem::resize_file(file, std::filesystem::file_size(file, reason) / 2, reason);
}

constexpr std::string_view endingOfModels = ".neu";

// Beside a deck of panel.neu the same neutral file with what was changed since, as panel.run.neu:
// the examples' solver reads no decks.
void writeNeutralBeside(const std::string& deck, embedded::Host& host)
{
    sys::System machine = sys::thisMachine();
    const std::string content = machine.files.read(host.modelName);
    femap::neutral::Model before;
    readNeutralFile(content, host.modelName, sys::windows1252(), before);
    const std::string_view model = host.modelName;
    const std::string_view name = model.substr(model.find_last_of(sys::pathSeparators) + 1);
    const std::string folder = deck.substr(0, deck.find_last_of(sys::pathSeparators) + 1);
    const auto file = machine.files.create(
        folder + std::string(name.substr(0, name.size() - endingOfModels.size())) + ".run.neu");
    const auto problems = embedded::writePatched(
        content, host.modelName, embedded::differences(before, host.openModel()),
        [&](std::string_view piece) { file->write(piece); });
    file->close();
    for (const embedded::PatchProblem& problem : problems)
        host.showMessage(femap::MessageColour::Warning, problem.what);
}

}  // namespace

// Older versions do not know all codes.
int ApplicationObject::codeOf(ReturnCode code) const
{
    const bool isNewer = code == ReturnCode::FileOpenFailed || code == ReturnCode::FileWriteFailed;
    return isNewer && server().isClassic ? failed : static_cast<int>(code);
}

// A property has no status: for what is not there all stays as it was.
void ApplicationObject::putActiveID(Arguments& arguments)
{
    server().host.activate(static_cast<EntityType>(arguments.number(0)), arguments.number(1));
}

// FEMAP asks for the analysis set when none is active, unless its dialogs are to stay away.
int ApplicationObject::fileWriteNastran(int brand, const std::string& path)
{
    embedded::Host& host = server().host;
    if (host.activeAnalysisSet == 0 && dialogAutoSkip == 0) {
        const Selection picked =
            host.dialogs().answer(EntityType::AnalysisSet, "Select Analysis Set to Export", true,
                                  host.idsOf(EntityType::AnalysisSet));
        if (picked.code != ReturnCode::Ok || picked.ids.empty())
            return static_cast<int>(ReturnCode::Cancel);
        host.activate(EntityType::AnalysisSet, picked.ids.front());
    }
    const ReturnCode result = host.feFileWriteNastran(brand, path);
    const std::optional<Fault> fault = faultOf("feFileWriteNastran");
    if (result == ReturnCode::Ok && (fault == Fault::Short || fault == Fault::Dies))
        cutInHalf(path);
    if (result == ReturnCode::Ok && host.modelName.ends_with(endingOfModels)) {
        try {
            writeNeutralBeside(path, host);
        }
        catch (const sys::RuntimeError& error) {
            host.showMessage(femap::MessageColour::Error, error.description());
        }
    }
    return codeOf(result);
}

int ApplicationObject::fileReadNastranResults(int brand, const std::string& path)
{
    return codeOf(server().host.feFileReadNastranResults(brand, path));
}

int ApplicationObject::deleteOfKind(EntityType type, int set)
{
    if (set > 0 && server().findSet(set) == nullptr)
        return failed;
    return codeOf(server().host.feDelete(type, server().idsIn(set, type)));
}

// Deletes results only. Unconfirmed, FEMAP asks; here nobody answers.
int ApplicationObject::deleteAll(bool geometry, bool mesh, bool output, bool confirmed)
{
    if (!confirmed)
        return static_cast<int>(ReturnCode::Cancel);
    if (geometry || mesh)
        return static_cast<int>(ReturnCode::NotAvailable);
    if (!output)
        return ok;
    constexpr EntityType sets = EntityType::OutputSet;
    return codeOf(server().host.feDelete(sets, server().host.idsOf(sets)));
}

int ApplicationObject::deleteOutput(int outputSet, int set)
{
    if (set > 0 && server().findSet(set) == nullptr)
        return failed;
    std::vector<int> vectors = set == 0 ? server().idsOf(EntityType::OutputVector, outputSet)
                                        : server().idsIn(set, EntityType::OutputVector);
    for (int& vector : vectors)
        vector = server().ownVectorID(vector);
    return codeOf(server().host.feDeleteOutput(outputSet, vectors));
}

}  // namespace standin
