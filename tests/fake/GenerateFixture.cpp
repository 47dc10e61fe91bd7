#include "fake/GenerateFixture.h"

#include "system/Files.h"

#include <utility>

namespace generate
{

namespace
{

void addRow(form::ParameterGrid& grid, std::initializer_list<std::string_view> cells)
{
    std::string text;
    for (const std::string_view cell : cells)
        text.append(cell) += '\t';
    const bool replacesBlank = grid.Rows() == 2 && grid.text(1, 0).empty();
    grid.AddItem(text);
    if (replacesBlank)
        grid.RemoveItem(1);
}

}  // namespace

std::string inWork(std::string_view fileName)
{
    const std::string separator(1, sys::pathSeparator);
    return separator + "work" + separator + std::string(fileName);
}

GenerateFixture::GenerateFixture()
{
    femap.modelName = inWork("beam.neu");
    form.Solver.Text = "NXNastran";
    form.Optimizer.Text = "Velmar";
    form.CommandLine.Text = "nastran beam.dat notify=no";
}

void GenerateFixture::addInput(std::initializer_list<std::string_view> cells)
{
    addRow(form.InputsList, cells);
}

void GenerateFixture::addOutput(std::initializer_list<std::string_view> cells)
{
    addRow(form.OutputsList, cells);
}

void GenerateFixture::addFunction(int id, const std::string& title, std::vector<double> x,
                                  std::vector<double> y)
{
    femap::neutral::Function function;
    function.id = id;
    function.title = title;
    function.x = std::move(x);
    function.y = std::move(y);
    model().functions.put(std::move(function));
}

std::vector<std::string> GenerateFixture::written(std::string_view fileName) const
{
    return files.lines(inWork(fileName));
}

bool GenerateFixture::exists(std::string_view fileName) const
{
    return files.contents.contains(inWork(fileName));
}

std::vector<std::string> GenerateFixture::fileNames() const
{
    std::vector<std::string> names;
    for (const auto& file : workFolder())
        names.push_back(file.first);
    return names;
}

std::map<std::string, std::string> GenerateFixture::workFolder() const
{
    return files.inFolder(inWork(""));
}

void GenerateFixture::beforeModelName(std::function<void(int call)> check)
{
    fake::CallWatch& watch = watchFemap();
    watch.before("ModelName", [&watch, check = std::move(check)] {
        check(static_cast<int>(watch.count("ModelName")));
    });
}

}  // namespace generate
