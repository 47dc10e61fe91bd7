#include "loop/evaluate/StudyCopies.h"

#include "generate/Targets.h"
#include "generate/TaskDescription.h"
#include "loop/StudyFiles.h"
#include "system/Platform.h"
#include "system/RuntimeError.h"

#include <filesystem>
#include <system_error>

namespace loop::evaluate
{

namespace
{

namespace fs = std::filesystem;
using sys::ErrorNumber;

// Of those that are not there a run has no need, or says so itself.
constexpr std::string_view copiedIfThere[] = {generate::inputDescription,  generate::inputValues,
                                              generate::outputDescription, generate::batchFile,
                                              generate::functionDataFile,  generate::settingsFile};

// With its time: what is older than another file stays so.
void copy(const std::string& from, const std::string& to)
{
    std::error_code reason;
    fs::copy_file(sys::toPath(from), sys::toPath(to), reason);
    if (!reason)
        fs::last_write_time(sys::toPath(to), fs::last_write_time(sys::toPath(from), reason),
                            reason);
    if (reason)
        throw sys::DiskError(ErrorNumber::FileError, "File not copied",
                             sys::conditionOf(reason).message(), from);
}

}  // namespace

StudyCopies::StudyCopies(const Study& study, std::size_t count,
                         std::span<const std::string> furtherFiles)
    : root_(study.pathOf(study.name() + "Copies"))
{
    removeAll();  // those of a run that was ended by force
    try {
        for (std::size_t i = 1; i <= count; ++i) {
            folders_.push_back(root_ + sys::pathSeparator + std::to_string(i) + sys::pathSeparator);
            const std::string& folder = folders_.back();
            std::error_code reason;
            fs::create_directories(sys::toPath(folder), reason);
            if (reason)
                throw sys::DiskError(ErrorNumber::PathNotFound, "Folder not created",
                                     sys::conditionOf(reason).message(), folder);
            const std::string model = neutralFile(study.inputs);
            copy(study.pathOf(model), folder + model);
            for (const std::string_view file : copiedIfThere)
                if (fs::exists(sys::toPath(study.pathOf(file)), reason))
                    copy(study.pathOf(file), folder + std::string(file));
            for (const std::string& file : furtherFiles)
                copy(study.pathOf(file),
                     folder + file.substr(file.find_last_of(sys::pathSeparators) + 1));
        }
    }
    catch (const sys::RuntimeError&) {
        removeAll();
        throw;
    }
}

StudyCopies::~StudyCopies()
{
    removeAll();
}

void StudyCopies::removeAll() const
{
    std::error_code ignored;  // what is held stays, and is tried again by the next run
    fs::remove_all(sys::toPath(root_), ignored);
}

}  // namespace loop::evaluate
