#include "loop/OutputFiles.h"

#include "generate/ExchangeFiles.h"
#include "generate/TextFile.h"

#include <optional>

namespace loop
{

void demandFreshResults(sys::System& system, const std::string& folder, const std::string& results,
                        const std::vector<std::string>& madeOf, Problems& problems)
{
    const std::optional<sys::FileFacts> made = system.files.facts(folder + results);
    if (!made)
        problems.add(results, 0, "the results are not there; let the solver run");
    for (const std::string& name : madeOf) {
        const std::optional<sys::FileFacts> from = system.files.facts(folder + name);
        if (!from)
            problems.add(name, 0,
                         "the file is not there; let CAEInput write it, and the solver run");
        // Without grace: both are of one disk, which rounds their times alike, and older results
        // would be those of other values.
        else if (made && made->changed < from->changed)
            problems.add(results, 0, "the results are older than " + name + "; let the solver run");
    }
}

void writeOutputValues(form::Context& context, const std::string& path)
{
    generate::TextFile file(context.system, context.log, path);
    for (const std::string& text : context.form.OutputsList.rows())
        if (const form::ParameterRow row(text); !row.name().empty())
            file.line(generate::nameValueLine(row));
    file.close();
}

}  // namespace loop
