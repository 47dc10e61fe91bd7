#include "EvaluateFixture.h"

#include <algorithm>
#include <filesystem>

namespace loop::evaluate
{

namespace
{

const std::string inputScript = R"text(#!/bin/sh
echo "CAEInput $*" >>calls
case "$*" in *--back*) echo "FEMAP is gone"; exit "$(cat back 2>/dev/null || echo 0)";; esac
[ ! -e input.hangs ] || { touch inside; exec sleep 60; }
! grep -q 'Skin  9' InputValues.txt || { echo "all is checked"; echo "Skin is refused"; exit 1; }
cp InputValues.txt panel.run.neu
echo deck >panel.dat
)text";

const std::string outputScript = R"text(#!/bin/sh
echo "CAEOutput $*" >>calls
[ ! -e output.hangs ] || { touch inside; exec sleep 60; }
[ ! -e output.fails ] || { echo "CAEOutput.txt:4: no number"; exit 1; }
cp panel.op2 OutputValues.txt
)text";

const std::string solverScript = R"text(
echo "solver" >>calls
[ ! -e solver.hangs ] || { touch inside; exec sleep 60; }
tr -d '\r' <panel.run.neu |
    awk '{ sum += $NF } END { printf "Total mass  %.12g\r\nEnd \"B\"  7\r\n", sum }' >panel.op2
)text";

}  // namespace

EvaluateFixture::EvaluateFixture()
{
    const auto program = [this](const std::string& name, const std::string& script) {
        const auto file = system.files.create(programs.path(name));
        file->write(script);
        file->close();
        std::filesystem::permissions(programs.path(name), std::filesystem::perms::owner_all);
    };
    program("CAEInput", inputScript);
    program("CAEOutput", outputScript);
    write("CAEInput.txt",
          "Reference Model (FEMAP) = panel.modfem\r\nInput Deck (NastranNX) = panel.dat\r\n"
          "NameValue = InputValues.txt\r\nProp  Skin  1  pval  0\r\n"
          "Function  Load  history   5    \r\nMatl  Web, left  2  Ex  \r\n");
    write("CAEOutput.txt",
          "Reference Model (FEMAP) = panel.modfem\r\nResults File (NastranNX) = panel.op2\r\n"
          "OutputNameValue = OutputValues.txt\r\nMassProperties  Total mass  MassTotal  \r\n"
          "maxval  End \"B\"  7033  7033\r\n");
    write("InputValues.txt", inputs);
    write("OutputValues.txt", outputs);
    write("FDFemap.bat", ". ./solve\r\n");
    write("solve", solverScript);
    write("panel.neu", "the model");
}

int EvaluateFixture::evaluate(std::vector<std::string> words)
{
    output.str("");
    errors.str("");
    if (std::ranges::none_of(words, [](const auto& word) { return word.starts_with("--femap"); }))
        words.emplace_back("--femap=embedded");
    words.insert(words.end(), {"--folder", folder.path()});
    return runEvaluate(words,
                       {output, errors, system, programs.path() + sys::pathSeparator, isToStop});
}

void EvaluateFixture::write(const std::string& name, const std::string& text) const
{
    const auto file = system.files.create(path(name));
    file->write(text);
    file->close();
}

std::string EvaluateFixture::read(const std::string& name) const
{
    return system.files.read(path(name));
}

bool EvaluateFixture::has(const std::string& name) const
{
    return std::filesystem::exists(path(name));
}

std::vector<std::string> EvaluateFixture::calls() const
{
    std::vector<std::string> lines;
    std::istringstream text(has("calls") ? read("calls") : "");
    for (std::string line; std::getline(text, line);)
        lines.push_back(line);
    return lines;
}

int EvaluateFixture::callsOf(const std::string& program) const
{
    return static_cast<int>(std::ranges::count_if(
        calls(), [&](const std::string& call) { return call.starts_with(program); }));
}

}  // namespace loop::evaluate
