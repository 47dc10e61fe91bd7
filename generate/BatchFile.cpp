#include "generate/BatchFile.h"

#include "generate/Targets.h"
#include "logging/Module1.h"

namespace generate
{

using logging::logDebug;
using logging::logPosition;

void WriteBatchFile(form::Context& context, form::Progress& progress, const std::string& folder,
                    const std::string& name)
{
    logPosition(context.log, "Before writing batch file object");
    TextFile file = openTarget(context, {folder, name}, batchFile);
    const std::string& command = context.form.CommandLine.Text;
    file.line(command);
    logDebug(context.log, "Found command line argument as ", command);
    finish(progress, file);
    logPosition(context.log, "After writing batch file object");
}

}  // namespace generate
