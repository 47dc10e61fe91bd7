#include "findings/Report.h"

#include "generate/TextTemplate.h"

namespace findings
{

namespace
{

constexpr std::size_t mostNamed = 5;  // of gathered findings

std::string filled(std::string_view text, std::initializer_list<generate::Slot> slots)
{
    std::string sentence = generate::fillIn(text, slots);
    sentence.pop_back();  // the end of the line
    return sentence;
}

}  // namespace

void Report::add(std::string_view name, std::string_view detail,
                 std::initializer_list<Place> places)
{
    if (count_++ < mostNamed)
        first_.push_back({std::string(name), std::string(detail)});
    places_.insert(places_.end(), places);
}

std::optional<Finding> Report::finding(std::string_view code, Severity severity,
                                       const Wording& wording) const
{
    if (count_ == 0)
        return std::nullopt;
    Finding finding = count_ == 1 || wording.several.empty() ? one(wording) : gathered(wording);
    finding.code = code;
    finding.severity = severity;
    finding.cure = wording.cure;
    return finding;
}

Finding Report::one(const Wording& wording) const
{
    const Item& item = first_.front();
    Finding finding;
    finding.places = places_;
    finding.name = item.name;
    finding.sentence = filled(
        wording.one, {{"name", {item.name}}, {"detail", {item.detail}}, {"about", {about_}}});
    return finding;
}

Finding Report::gathered(const Wording& wording) const
{
    std::string names;
    for (const Item& item : first_) {
        names.append(names.empty() ? "" : ", ").append(item.name);
        if (!item.detail.empty())
            names.append(" (").append(item.detail).append(")");
    }
    if (first_.size() < count_)
        names.append(" and ").append(std::to_string(count_ - first_.size())).append(" more");

    Finding finding;
    finding.places = places_;
    finding.sentence = filled(wording.several, {{"count", {std::to_string(count_)}},
                                                {"names", {names}},
                                                {"about", {about_}},
                                                {"name", {first_.front().name}},
                                                {"detail", {first_.front().detail}}});
    return finding;
}

}  // namespace findings
