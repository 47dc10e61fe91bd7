#pragma once

#include "fake/FormFixture.h"
#include "fake/QueuedPropertyList.h"
#include "fake/TemporaryFolder.h"
#include "femap/embedded/Host.h"
#include "form/Context.h"

#include <string>

namespace bench
{

/// The form on the real disk and the real clock, with the model host behind it. Its files lie in a
/// folder that goes with it.
class BenchForm
{
public:
    /// logLevel: as an engineer gives it.
    explicit BenchForm(std::string logLevel = "NOTHING");

    fake::TemporaryFolder folder;
    sys::System system;
    fake::QueuedDialogs dialogs;
    femap::embedded::Host femap;
    fake::FakeFormHost host;
    form::MainForm form;
    form::Context context;

    /// Nodes 1 to count, with coordinates of up to five digits.
    void addNodes(int count);
    /// A vector of results with a value at each of these nodes.
    void addVector(int id, int nodes);

    /// "Select..." under Input: x, y and z of these nodes, picked and chosen in the dialogs.
    void selectInputs(int nodes);
    /// "Select..." under Output: all vectors at these nodes.
    void selectOutputs(int nodes);

private:
    void pickNodes(int count);

    fake::QueuedPropertyList list_;
    selection::frmPropertyList dialog_{femap, list_};
};

/// So many rows in each grid: four fields of nodes for one of properties, four results at nodes for
/// one that becomes a constraint.
void fillGrids(form::MainForm& form, int rows);

/// The value in the rows of this number.
double valueOfRow(int number);

/// A coordinate that addNodes gives to a node.
double coordinateOf(int node, int axis);

}  // namespace bench
