#pragma once

#include "fake/GenerateFixture.h"
#include "findings/FindingText.h"
#include "findings/Findings.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace findings
{

/// A study of which nothing is to be said: a thickness and a force at an element, as they are in
/// the model "beam.neu", with its deck and templates beside it.
class FindingsFixture : public generate::GenerateFixture
{
public:
    FindingsFixture()
    {
        form.fileExtension = "neu";
        model().nodes.put({.id = 12, .x = 1.5});
        model().elements.put({.id = 40, .propID = 7, .type = 17, .node = {12}});
        model().properties.put({.id = 7, .title = "Skin", .type = 17, .pval = {0.25}});
        femap::neutral::OutputSet set;
        set.id = 1;
        set.vectors.put({.id = 85002, .title = "Elem Forces", .ids = {40}, .values = {3.5}});
        model().outputSets.put(set);
        addInput({"ThicknessAtProp7", "0.25", "Prop", "7", "pval", "0"});
        addOutput({"ElemForces85002AtElem40", "3.5", "40", "85002", "Output"});
        put("beam.dat", "deck");
        put("InputValues.txt.template", "ThicknessAtProp7  !<ThicknessAtProp7%f!0.25>!\r\n");
        put("OutputValues.txt.template",
            "ElemForces85002AtElem40  !<ElemForces85002AtElem40%f!3.5>!\r\n");
    }

    /// A file beside the model.
    void put(std::string_view fileName, const std::string& content)
    {
        files.contents[generate::inWork(fileName)] = content;
    }
    /// Another model is open, with its deck beside it.
    void openModel(const std::string& fileName)
    {
        femap.modelName = generate::inWork(fileName);
        const std::string name = fileName.substr(0, fileName.rfind('.'));
        form.CommandLine.Text = "nastran " + name + ".dat notify=no";
        put(name + ".dat", "deck");
    }
    void chooseTool(const std::string& tool) { form.Optimizer.Text = tool; }

    std::vector<Finding> all() { return allFindings(context); }
    std::vector<Finding> quick() { return quickFindings(context, femap.modelName); }
    /// Everything that is found, line by line.
    std::vector<std::string> lines()
    {
        std::vector<std::string> result;
        for (const Finding& finding : all())
            result.push_back(lineOf(finding));
        return result;
    }
    /// What the rule finds, without its cure; empty when it is silent.
    std::string found(std::string_view code)
    {
        const std::vector<Finding> some = all();
        const auto finding = std::ranges::find(some, code, &Finding::code);
        if (finding == some.end())
            return {};
        const std::string line = lineOf(*finding);
        return line.substr(0, line.find(" Cure: "));
    }
    /// The rows that a rule's finding belongs to.
    std::vector<Place> places(std::string_view code)
    {
        const std::vector<Finding> some = all();
        const auto finding = std::ranges::find(some, code, &Finding::code);
        return finding == some.end() ? std::vector<Place>() : finding->places;
    }
};

inline void PrintTo(const Place& place, std::ostream* out)
{
    *out << wordOf(place.grid) << ':' << place.row;
}

}  // namespace findings
