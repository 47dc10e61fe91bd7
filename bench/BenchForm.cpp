#include "bench/BenchForm.h"

#include "selection/InputSelection.h"
#include "selection/OutputSelection.h"

#include <numeric>
#include <utility>

namespace bench
{

namespace
{

constexpr int valueRange = 100'000;  // of what stands in rows

sys::System systemWithTemp(const std::string& folder)
{
    sys::System system = sys::thisMachine();
    system.environment = [folder](const std::string&) { return folder; };
    return system;
}

}  // namespace

BenchForm::BenchForm(std::string logLevel)
    : system(systemWithTemp(folder.path())), femap(dialogs), context(form, host, system)
{
    femap.modelName = folder.path("model.neu");
    context.application = femap.attach();
    form.fileExtension = "neu";
    form.Solver.Text = "NXNastran";
    form.Optimizer.Text = "Velmar";
    form.CommandLine.Text = "nastran model.dat notify=no";
    std::string name = "bench.log";
    context.log.InitialiseLogger(name, logLevel);
}

void BenchForm::addNodes(int count)
{
    std::vector<femap::neutral::Node> nodes(static_cast<std::size_t>(count));
    int id = 0;
    for (femap::neutral::Node& node : nodes) {
        node.id = ++id;
        node.x = coordinateOf(id, 0);
        node.y = coordinateOf(id, 1);
        node.z = coordinateOf(id, 2);
    }
    femap.openModel().nodes.merge(std::move(nodes));
}

void BenchForm::addVector(int id, int nodes)
{
    femap::neutral::OutputVector vector;
    vector.id = id;
    vector.title = "T" + std::to_string(id) + " Translation";
    vector.ids.resize(static_cast<std::size_t>(nodes));
    std::iota(vector.ids.begin(), vector.ids.end(), 1);
    for (const int node : vector.ids)
        vector.values.push_back(coordinateOf(node, id));
    auto& sets = femap.openModel().outputSets;
    if (sets.find(1) == nullptr)
        sets.put({.id = 1});
    sets.find(1)->vectors.put(std::move(vector));
}

void BenchForm::selectInputs(int nodes)
{
    pickNodes(nodes);
    list_.choose({"x", "y", "z"});
    form.InputSelection.Text = "Nodes";
    selection::InputsButton_Click(context, dialog_);
}

void BenchForm::selectOutputs(int nodes)
{
    pickNodes(nodes);
    list_.chooseAll();
    form.OutputSelection.Text = "Nodes";
    dialog_.UpdateCollection();
    selection::OutputsButton_Click(context, dialog_);
}

void BenchForm::pickNodes(int count)
{
    std::vector<int> ids(static_cast<std::size_t>(count));
    std::iota(ids.begin(), ids.end(), 1);
    dialogs.pick(std::move(ids));
}

void fillGrids(form::MainForm& form, int rows)
{
    for (int i = 1; i <= rows; ++i) {
        const std::string id = std::to_string(i);
        const std::string value = std::to_string(i % valueRange) + ".125";
        const bool isSpecial = i % 5 == 0;
        form.InputsList.AddItem(
            isSpecial ? "ThicknessAtProp" + id + '\t' + value + "\tProp\t" + id + "\tpval\t0"
                      : "xAtNode" + id + '\t' + value + "\tNode\t" + id + "\tx");
        const std::string name = isSpecial ? "ElemForceX7020AtElem" : "TotalTrans1AtNode";
        form.OutputsList.AddItem(name + id + '\t' + value + '\t' + id + "\t1\tOutput");
    }
    form.InputsList.RemoveItem(1);
    form.OutputsList.RemoveItem(1);
}

double valueOfRow(int number)
{
    return number % valueRange + 0.125;
}

double coordinateOf(int node, int axis)
{
    constexpr int prime = 7919;
    constexpr int range = 100'000;
    return static_cast<double>((static_cast<std::int64_t>(node) * prime + axis) % range) / 1000;
}

}  // namespace bench
