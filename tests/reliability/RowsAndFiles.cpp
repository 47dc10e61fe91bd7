#include "RowsAndFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace reliability
{

namespace
{

using Rows = std::vector<std::string>;

std::string nameIn(const std::string& row)
{
    return row.substr(0, row.find('\t'));
}

std::string withoutValue(const std::string& row)
{
    const std::size_t value = row.find('\t') + 1;
    return row.substr(0, value) + row.substr(std::min(row.find('\t', value), row.size()));
}

std::vector<std::string> namesIn(const Rows& rows)
{
    std::vector<std::string> names;
    std::ranges::transform(rows, std::back_inserter(names), nameIn);
    return names;
}

bool isSubsequence(const std::vector<std::string>& part, const std::vector<std::string>& all)
{
    auto place = all.begin();
    for (const std::string& each : part) {
        place = std::find(place, all.end(), each);
        if (place == all.end())
            return false;
        ++place;
    }
    return true;
}

void expectRows(const Rows& before, const Rows& after, const Rows& left)
{
    std::set<std::string> allowed(before.begin(), before.end());
    allowed.insert(after.begin(), after.end());
    for (const std::string& row : after)
        allowed.insert(withoutValue(row));
    for (const std::string& row : left)
        EXPECT_TRUE(allowed.contains(row)) << row;
    // Rows that came are sorted at the end only.
    const std::vector<std::string> namesAfter = namesIn(after);
    const std::vector<std::string> namesLeft = namesIn(left);
    for (const std::string& name : namesLeft)
        EXPECT_LE(std::ranges::count(namesLeft, name), std::ranges::count(namesAfter, name))
            << name;
}

}  // namespace

Kept keptBy(const World& world)
{
    return {world.inputs(), world.outputs(), world.generatedFiles(),
            world.form.StatusLine.Caption.starts_with("Unable to fetch the value for function")};
}

const WholeRun& wholeRunOf(const Action& action)
{
    static std::map<std::string, WholeRun> known;
    const auto place = known.find(action.name);
    if (place != known.end())
        return place->second;

    World world;
    return known[action.name] = wholeRun(world, action);
}

WholeRun wholeRun(World& world, const Action& action)
{
    begin(world, action);
    WholeRun run;
    run.before = keptBy(world);
    world.connector.calls.clear();
    EXPECT_EQ(action.run(world), app::Ended::Normally);
    run.after = keptBy(world);
    run.messages = world.messages();
    run.calls = world.connector.calls;
    return run;
}

void expectNoRowMissing(const WholeRun& whole, const Kept& left)
{
    EXPECT_PRED2(isSubsequence, namesIn(whole.before.inputs), namesIn(left.inputs));
    EXPECT_PRED2(isSubsequence, namesIn(whole.before.outputs), namesIn(left.outputs));
}

void expectRowsOf(const WholeRun& whole, const Kept& left)
{
    expectNoRowMissing(whole, left);
    expectRows(whole.before.inputs, whole.after.inputs, left.inputs);
    expectRows(whole.before.outputs, whole.after.outputs, left.outputs);
}

void expectFilesOf(const WholeRun& whole, const Kept& left)
{
    EXPECT_EQ(left.files.size(), whole.before.files.size());
    for (const auto& [name, content] : left.files) {
        ASSERT_TRUE(whole.before.files.contains(name)) << name;
        if (left.lacksTheFunction && name == "FunctionsInputvalues.txt") {
            EXPECT_EQ(content, "");  // the only one
            continue;
        }
        EXPECT_THAT(content,
                    testing::AnyOf(whole.before.files.at(name), whole.after.files.at(name)))
            << name;
    }
}

}  // namespace reliability
