#include "findings/Findings.h"

#include "findings/Rules.h"

#include <algorithm>
#include <utility>

namespace findings
{

namespace
{

void append(std::vector<Finding>& all, const Rule& rule, const Report& report)
{
    if (auto finding = report.finding(rule.code, rule.severity, rule.wording))
        all.push_back(std::move(*finding));
}

// What the disk or FEMAP refuses costs one rule and is told.
void follow(const Study& study, const Rule& rule, std::vector<Finding>& all)
{
    Report report;
    sys::PendingError refused;
    if (rule.check != nullptr && !refused.attempt([&] { rule.check(study, report); })) {
        report = Report();
        report.add(rule.code, refused.description());
        append(all, ruleForFailures(), report);
        return;
    }
    append(all, rule, report);
}

std::vector<Finding> findingsOf(const Study& study, bool onDemand)
{
    std::vector<Finding> all;
    for (const Rule& rule : rules())
        if (onDemand || rule.when == When::Always)
            follow(study, rule, all);
    std::ranges::stable_sort(all, {}, &Finding::severity);
    return all;
}

}  // namespace

std::vector<Finding> quickFindings(form::Context& context, const std::string& modelFile)
{
    return findingsOf(Study(context, modelFile), false);
}

std::vector<Finding> allFindings(form::Context& context)
{
    std::string modelFile;
    sys::PendingError noModel;  // what goes by it is left out
    noModel.attempt([&] { modelFile = context.femap().ModelName(); });
    const bool hasModel = !noModel.isPending();
    return findingsOf(Study(context, modelFile), hasModel);
}

}  // namespace findings
