// A control file of any bytes fills the grids with whole rows, without an error that stays, and is
// left as it is. What the grids hold then is saved and read without loss.

#include "fake/FormFixture.h"
#include "fuzz/Fuzz.h"
#include "generate/ControlFile.h"

#include <algorithm>

using form::ParameterGrid;
using fuzz::require;

namespace
{

const std::string controlFile = std::string("/work") + sys::pathSeparator + "beamControl.txt";

void openModel(fake::FormFixture& f)
{
    f.femap.modelName = std::string("/work") + sys::pathSeparator + "beam.neu";
}

bool isStray(char c)
{
    return (static_cast<unsigned char>(c) < 0x20 && c != '\t') || c == 0x7F;
}

void checkRows(const ParameterGrid& grid)
{
    require(grid.Rows() >= 2, "a grid keeps a row");
    for (int row = 1; row < grid.Rows(); ++row) {
        const std::string text = grid.rowText(row);
        require(std::ranges::count(text, '\t') == grid.Cols() - 1, "a row has all its cells");
        require(std::ranges::none_of(text, isStray), "a cell has no control character");
    }
}

std::vector<std::string> namedRows(const ParameterGrid& grid)
{
    std::vector<std::string> rows;
    for (int row = 1; row < grid.Rows(); ++row)
        if (!grid.text(row, form::nameColumn).empty())
            rows.push_back(grid.rowText(row));
    return rows;
}

void checkSaved(fake::FormFixture& f)
{
    const std::vector<std::string> inputs = namedRows(f.form.InputsList);
    if (inputs.empty())
        return;  // then the outputs are taken for inputs
    generate::Save_Config(f.context, f.progress);
    if (f.files.contents.at(controlFile).starts_with("\xEF\xBB\xBF"))
        return;  // a name that begins so is taken for the mark of UTF-8

    fake::FormFixture again;
    openModel(again);
    again.files.contents[controlFile] = f.files.contents.at(controlFile);
    generate::Load_Click(again.context, again.femap.modelName);

    require(namedRows(again.form.InputsList) == inputs, "the inputs survive");
    require(namedRows(again.form.OutputsList) == namedRows(f.form.OutputsList),
            "the outputs survive");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string content = fuzz::textOf(data, size);
    fake::FormFixture f;
    openModel(f);
    f.files.contents[controlFile] = content;

    generate::Load_Click(f.context, f.femap.modelName);

    require(f.files.contents.at(controlFile) == content, "the file is left as it is");
    require(!f.context.error.isPending(), "no error stays");
    checkRows(f.form.InputsList);
    checkRows(f.form.OutputsList);
    checkSaved(f);
    return 0;
}
