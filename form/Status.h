// What stands on the status line: how the latest action ended, or the gravest thing that happened
// in it; above that, for as long as it lasts, how far the work is or what is waited for.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace form
{

class Status
{
public:
    /// caption: the text of the status line, which must outlive this.
    explicit Status(std::string& caption) : caption_(caption) {}

    /// An action begins: everything that was told before goes.
    void clear();

    /// Stands before whatever else is told, in the first line.
    void tellFirst(std::string_view text);
    /// How an action ended, counts and the like. The latest one stands, unless there is a problem.
    void tellResult(std::string_view text);
    /// What is worth knowing besides; stands behind the result, each text once.
    void tellHint(std::string_view text);
    /// Something was lost or left out. The latest one stands in place of results and hints.
    void tellProblem(std::string_view text);
    /// What ended the action. The latest one stands in place of everything else.
    void tellFailure(std::string_view text);
    /// Stands behind whatever else is told: what became of the log.
    void tellAsWell(std::string_view text);
    /// What ended the latest action, or else its problem; empty when all went well.
    const std::string& gravest() const { return failure_.empty() ? problem_ : failure_; }
    /// Takes a text back that is no longer true.
    void withdraw(std::string_view text);

    /// Shown above all of these until taken back by an empty text: how far the work is, and, above
    /// that, what is waited for.
    void showProgress(std::string_view text);
    void showWaiting(std::string_view text);

private:
    void compose();
    void append(std::string_view sentence);

    std::string& caption_;
    std::string first_;
    std::string result_;
    std::vector<std::string> hints_;
    std::string problem_;
    std::string failure_;
    std::string asWell_;
    std::string progress_;
    std::string waiting_;
};

}  // namespace form
