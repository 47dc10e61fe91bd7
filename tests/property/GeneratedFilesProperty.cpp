#include "fake/GenerateFixture.h"
#include "fake/RandomSeed.h"
#include "femap/NumberText.h"
#include "generate/GenerationDriver.h"
#include "property/Generators.h"
#include "property/LineGrammar.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>

namespace property
{

namespace
{

constexpr int roundsOfFiles = 150;
constexpr int mostRows = 10;
constexpr int mostFunctions = 4;

constexpr const char* solvers[] = {"NENastran", "NXNastran", "nxnastran", "", "Other solver"};

using Lines = std::vector<std::string>;

// Lines that rows add to a file.
struct Addition
{
    std::optional<std::string> after;  // none: at the start of the file
    int occurrence;                    // of that line, from 1
    Lines lines;
};

template <class MakeLine>
Lines eachOf(const std::vector<Row>& rows, MakeLine makeLine)
{
    Lines lines;
    for (const Row& row : rows)
        lines.push_back(makeLine(row));
    return lines;
}

template <class Belongs>
std::vector<Row> those(std::vector<Row> rows, Belongs belongs)
{
    std::erase_if(rows, [&](const Row& row) { return !belongs(row); });
    return rows;
}

Row whole(Row row)
{
    row.resize(6);
    return row;
}

std::string name(const Row& row)
{
    return row[0];
}
std::string nameAndValue(const Row& row)
{
    return row[0] + "  " + row[1];
}
std::string placeholder(const Row& row)
{
    return row[0] + "  !<" + row[0] + "%f!" + row[1] + ">!";
}
bool isProperty(const Row& row)
{
    return row[2] == "Prop";
}
bool isNoFunction(const Row& row)
{
    return row[2] != "Function";
}
bool isOfAnElement(const Row& row)
{
    return row[0].substr(0, 4) == "Elem";
}

std::string inputLocator(const Row& cells)
{
    const Row row = whole(cells);
    return row[2] + "  " + row[0] + "  " + row[3] + "  " + row[4] + "  " + row[5];
}
std::string outputLocator(const Row& row)
{
    return row[4] + "  " + row[0] + "  " + row[2] + "  " + row[3];
}

auto record(const std::string& role)
{
    return [role](const Row& row) {
        return "'P'    '" + row[0] + "'    " + row[1] +
               "        0.00    0.0    -9.425e6    9.425e6    0.00    " + role;
    };
}

auto parameter(int indent, const std::string& rest)
{
    return [indent, rest](const Row& row) {
        return std::string(static_cast<std::size_t>(indent), ' ') + "Parameter: " + row[0] + rest;
    };
}

std::string listed(const Row& row)
{
    return std::string(12, ' ') + name(row);
}

std::vector<Addition> toTheTaskDescription(const std::vector<Row>& inputs,
                                           const std::vector<Row>& outputs)
{
    const std::vector<Row> properties = those(inputs, isProperty);
    const auto declared = [](const Row& row) {
        return "        Parameter: " + row[0] + " Type: real InitialValue: " + row[1];
    };
    const char* const bounds =
        " LowerBound: -5000.0 Weight: 1.0 ScaleFactor: 1.0"
        " UpperBound: 5000.0 Weight: 1.0 ScaleFactor: 1.0";
    return {
        {"    Inputs Task1", 1, eachOf(those(inputs, isNoFunction), declared)},
        {"    Outputs Task1", 1, eachOf(outputs, parameter(8, " Type: real"))},
        {"        PotentialVariables:", 1, eachOf(inputs, listed)},
        {"        Variables:", 1, eachOf(properties, listed)},
        {"        VariableScaling", 1, eachOf(properties, parameter(12, " ScaleFactor: 1.0"))},
        {"        InputConstraints", 1,
         eachOf(properties, parameter(12, " LowerBound: 0.01 UpperBound: 5.0"))},
        {"        PotentialObjectives:", 1, eachOf(outputs, listed)},
        {"        OutputConstraints", 1,
         eachOf(those(outputs, isOfAnElement), parameter(12, bounds))},
    };
}

using Additions = std::map<std::string, std::vector<Addition>>;  // by file

Additions toTheExchangeFiles(const std::vector<Row>& inputs, const std::vector<Row>& outputs)
{
    return {
        {"CAEInput.txt", {{"NameValue = InputValues.txt", 1, eachOf(inputs, inputLocator)}}},
        {"InputValues.txt", {{std::nullopt, 1, eachOf(inputs, nameAndValue)}}},
        {"CAEOutput.txt",
         {{"OutputNameValue = OutputValues.txt", 1, eachOf(outputs, outputLocator)}}},
        {"OutputValues.txt", {{std::nullopt, 1, eachOf(outputs, nameAndValue)}}},
    };
}

class RandomApply
{
public:
    RandomApply(Random& random, const char* tool)
        : random_(random),
          tool_(tool),
          solver_(random.of(solvers)),
          command_(random.oneIn(5) ? "" : "nastran " + randomText(random, 0, 30)),
          inputs_(randomInputs(random, mostRows)),
          outputs_(randomOutputs(random, mostRows))
    {
        for (int id = 1; id <= mostFunctions; ++id)
            if (!random.oneIn(3))
                addFunction(id);
        for (Row& row : inputs_)
            if (row[2] == "Function")
                row[3] = " " + std::to_string(random.between(1, mostFunctions));
    }

    // The files of an empty selection with the lines of the rows added are the files of the rows.
    void check()
    {
        const auto withoutRows = filesOf({}, {});
        const auto withRows = filesOf(inputs_, outputs_);

        ASSERT_EQ(namesOfFiles(withoutRows), namesOfFiles(withRows));
        for (const auto& [file, bytes] : withRows) {
            SCOPED_TRACE(file);
            EXPECT_EQ(flawOfText(bytes), "");
            const Lines fixed = linesOf(withoutRows.at(file));
            const Lines all = linesOf(bytes);
            EXPECT_EQ(strangeLine(file, fixed, false), "");
            if (file != "beamControl.txt") {
                EXPECT_EQ(strangeLine(file, all, true), "");
            }
            EXPECT_EQ(all, inFile(file, fixed));
        }
    }

private:
    static Lines namesOfFiles(const std::map<std::string, std::string>& files)
    {
        Lines names;
        for (const auto& file : files)
            names.push_back(file.first);
        return names;
    }

    void addFunction(int id)
    {
        femap::neutral::Function& function = functions_[id];
        function.id = id;
        function.title = "title " + randomText(random_, 0, 10);
        for (int i = random_.below(4); i > 0; --i) {
            function.x.push_back(random_.between(-9, 9) / 8.0);
            function.y.push_back(random_.between(-9, 9) * 1e-20);
        }
    }

    std::map<std::string, std::string> filesOf(const std::vector<Row>& inputs,
                                               const std::vector<Row>& outputs) const
    {
        generate::GenerateFixture f;
        f.form.Optimizer.Text = tool_;
        f.form.Solver.Text = solver_;
        f.form.CommandLine.Text = command_;
        for (const auto& [id, function] : functions_)
            f.model().functions.put(function);
        putInto(f.form.InputsList, inputs);
        putInto(f.form.OutputsList, outputs);

        generate::GenerateButton_Click(f.context);

        EXPECT_EQ(f.femap.lockCount, 0);
        return f.workFolder();
    }

    Lines functionBlocks() const
    {
        Lines lines;
        for (const Row& row : inputs_) {
            const bool isFunction = row[2] == "Function";
            const auto place = isFunction ? functions_.find(std::stoi(row[3])) : functions_.end();
            if (place == functions_.end())
                continue;
            const femap::neutral::Function& function = place->second;
            lines.push_back("Function Definition");
            lines.push_back(" " + std::to_string(function.id) + " ");
            lines.push_back(function.title);
            lines.push_back(" " + std::to_string(function.x.size()));
            for (std::size_t i = 0; i < function.x.size(); ++i)
                lines.push_back(femap::signBlankText(function.x[i]) + "_" +
                                femap::signBlankText(function.y[i]));
        }
        return lines;
    }

    Additions additions() const
    {
        const std::vector<Row> inputs = named(inputs_);
        const std::vector<Row> outputs = named(outputs_);
        const bool isVelmar = tool_ == "Velmar";
        Additions all =
            toTheExchangeFiles(isVelmar ? those(inputs, isNoFunction) : inputs, outputs);
        all["vELMARbeam.desc"] = toTheTaskDescription(inputs, outputs);
        all["FunctionsInputvalues.txt"] = {{std::nullopt, 1, functionBlocks()}};
        all["InputValues.txt.template"] = {{std::nullopt, 1, eachOf(inputs, placeholder)}};
        all["OutputValues.txt.template"] = {{std::nullopt, 1, eachOf(outputs, placeholder)}};
        all["beam.par"] = {{"'H' '============'", 1, eachOf(inputs, record("1"))},
                           {"'H' '============'", 2, eachOf(outputs, record("2"))}};
        const auto columns = [](int count) {
            return [count](const Row& row) { return joined(row, count); };
        };
        all["beamControl.txt"] = {{std::nullopt, 1, eachOf(inputs, columns(6))},
                                  {"", 1, eachOf(outputs, columns(5))}};
        return all;
    }

    Lines inFile(const std::string& file, const Lines& fixed) const
    {
        const Additions all = additions();
        const auto ofFile = all.find(file);
        Lines result;
        const auto add = [&](const std::optional<std::string>& after, int occurrence) {
            if (ofFile == all.end())
                return;
            for (const Addition& addition : ofFile->second)
                if (addition.after == after && addition.occurrence == occurrence)
                    for (const std::string& line : addition.lines)
                        sys::windows1252().encode(line, result.emplace_back());
        };
        std::map<std::string, int> seen;
        add(std::nullopt, 1);
        for (const std::string& line : fixed) {
            result.push_back(line);
            add(line, ++seen[line]);
        }
        return result;
    }

    Random& random_;
    std::string tool_;
    std::string solver_;
    std::string command_;
    std::vector<Row> inputs_;
    std::vector<Row> outputs_;
    std::map<int, femap::neutral::Function> functions_;
};

class FilesOfRandomGrids : public testing::TestWithParam<const char*>
{};

}  // namespace

TEST_P(FilesOfRandomGrids, HoldTheLinesOfEveryNamedRowInTheirOrderBetweenTheFixedOnes)
{
    Random random(fake::randomSeed());

    for (int round = 0; round < roundsOfFiles && !HasFailure(); ++round)
        RandomApply(random, GetParam()).check();
}

INSTANTIATE_TEST_SUITE_P(OfEachTool, FilesOfRandomGrids,
                         testing::Values("Velmar", "Ombra", "KORVA"),
                         [](const auto& tool) { return std::string(tool.param); });

}  // namespace property
