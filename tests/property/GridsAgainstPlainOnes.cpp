#include "fake/FormFixture.h"
#include "fake/GridRows.h"
#include "fake/RandomSeed.h"
#include "form/FormProcedures.h"
#include "property/Generators.h"
#include "property/PlainGrid.h"
#include "selection/InputList.h"
#include "selection/OutputList.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace property
{

using fake::rowsOf;

namespace
{

constexpr int roundsOfGrids = 300;
constexpr int stepsInARound = 12;
constexpr int mostIds = 5;  // so that entities are chosen again and again
constexpr int plate = 17;
constexpr int rod = 1;

struct Field
{
    const char* title;
    const char* member;
    int index;              // -1: none
    const char* shortened;  // in front of "At"
};

// Several are alike once they are cut.
// clang-format off
constexpr Field fields[] = {
    {"Color",                    "color",  -1, "Color"},
    {"NS Mass/Len",              "pval",    1, "NSMassLen"},
    {"ShearAr, K1",              "pval",    2, "ShearArK1"},
    {"Degrees of freedom 0",     "pval",    3, "Degreesoffreedo"},
    {"Degrees of freedom 5",     "pval",    4, "Degreesoffreedo"},
    {"Not, in-FEMAP/ever at all", "absent", -1, "NotinFEMAPever"},
};
// clang-format on

// Made from the ID and the field, so that a value in the wrong row is seen.
int valueOf(int id, const Field& field)
{
    return field.index < 0 ? 100 + id : 1000 * id + field.index;
}

// The log lines that tell what became of rows.
std::vector<std::string> rowLines(fake::FormFixture& f)
{
    std::vector<std::string> lines;
    for (const std::string& line : f.log())
        if (line.starts_with("DEBUG: Deleted entry for ") ||
            line.starts_with("DEBUG: Added variable to "))
            lines.push_back(line);
    return lines;
}

std::vector<int> someIds(Random& random)
{
    std::vector<int> ids;
    for (int id = 1; id <= mostIds; ++id)
        if (random.oneIn(2))
            ids.push_back(id);
    return ids;
}

// The steps that both grids have in common, done to a form and to plain grids.
class BothWays
{
public:
    explicit BothWays(Random& random) : random_(random) {}
    virtual ~BothWays() = default;

    void compare()
    {
        for (int i = 0; i < stepsInARound && !testing::Test::HasFailure(); ++i) {
            step();
            EXPECT_EQ(rowsOf(f.form.InputsList), inputs.rows());
            EXPECT_EQ(rowsOf(f.form.OutputsList), outputs.rows());
        }
        EXPECT_EQ(rowLines(f), log);
        EXPECT_EQ(f.femap.lockCount, 0);
        EXPECT_EQ(f.form.InputsList.MousePointer, form::pointerDefault);
        EXPECT_FALSE(f.context.error.isPending());
    }

protected:
    virtual void update() = 0;
    // Rows from before; alike ones stand together, so that some move up into a removed place.
    void addOldRows(form::ParameterGrid& grid, PlainGrid& plain, const std::string& keys)
    {
        for (int i = random_.below(4); i > 0; --i) {
            const std::string row = oldName() + "\told\t" + keys;
            for (int copies = random_.between(1, 3); copies > 0; --copies) {
                grid.AddItem(row);
                plain.append(row);
            }
        }
    }
    virtual std::string oldName() { return random_.oneIn(3) ? "" : "Kept" + number(4); }

    std::string number(int bound) { return std::to_string(random_.below(bound)); }
    void logDeleted(const PlainGrid::Visit& visit, const std::string& name, const char* list)
    {
        for (int i = 0; i < visit.removed; ++i)
            log.push_back("DEBUG: Deleted entry for " + name + "from " + list);
    }
    std::unique_ptr<femap::EntitySet> setOf(femap::EntityType type, const std::vector<int>& ids)
    {
        f.pick(ids);
        auto set = f.context.femap().feSet();
        set->Select(type, true, "pick");
        return set;
    }

    Random& random_;
    fake::FormFixture f;
    PlainGrid inputs{6};
    PlainGrid outputs{5};
    std::vector<std::string> log;

private:
    void step()
    {
        const int kind = random_.below(10);
        if (kind == 0) {
            form::ClearAll_Click(f.context);
            inputs.clear(6);
            outputs.clear(4);
        }
        else if (kind == 1)
            removeSelected(f.form.InputsList, inputs, form::ClearInputSelection_Click);
        else if (kind == 2)
            removeSelected(f.form.OutputsList, outputs, form::ClearOutputSelection_Click);
        else
            update();
    }

    void removeSelected(form::ParameterGrid& grid, PlainGrid& plain, void (*click)(form::Context&))
    {
        grid.Row = random_.between(1, plain.count());
        grid.RowSel = random_.between(1, plain.count());
        plain.removeSelected(grid.Row, grid.RowSel);

        click(f.context);
    }
};

class Inputs : public BothWays
{
public:
    explicit Inputs(Random& random) : BothWays(random)
    {
        for (int id = 1; id <= mostIds; ++id) {
            femap::neutral::Property property;
            property.id = id;
            property.type = id % 2 == 0 ? plate : rod;
            property.color = valueOf(id, fields[0]);
            property.pval.resize(5);
            for (const Field& field : fields)
                if (field.index >= 0)
                    property.pval[static_cast<std::size_t>(field.index)] = valueOf(id, field);
            f.model().properties.put(std::move(property));
        }
        addOldRows(f.form.InputsList, inputs, "Prop\t1\tcolor");
    }

private:
    std::string oldName() override
    {
        return random_.oneIn(2) ? BothWays::oldName()
                                : random_.of(fields).shortened + ("AtProp" + number(mostIds + 1));
    }

    void update() override
    {
        std::vector<Field> chosen;
        std::copy_if(std::begin(fields), std::end(fields), std::back_inserter(chosen),
                     [&](const Field&) { return random_.oneIn(2); });
        const std::vector<int> ids = someIds(random_);
        const int type = random_.oneIn(3) ? plate : -1;

        std::vector<std::string> titles;
        std::map<std::string, std::string> members;
        std::map<std::string, std::string> indexes;
        for (const Field& field : chosen) {
            titles.emplace_back(field.title);
            members[field.title] = field.member;
            if (field.index >= 0)
                indexes[field.title] = std::to_string(field.index);
        }
        const auto set = setOf(femap::EntityType::Property, ids);
        selection::UpdateInputList(f.context, "Prop", set->ids(), titles, members, indexes, type);

        for (const int id : ids)
            if (type == -1 || id % 2 == 0)
                for (const Field& field : chosen)
                    updatePlain(id, field);
        inputs.sort();
        inputs.tidy();
    }

    void updatePlain(int id, const Field& field)
    {
        const std::string name = field.shortened + ("AtProp" + std::to_string(id));
        const PlainGrid::Visit visit = inputs.visit(name);
        logDeleted(visit, name, "Input List");
        if (visit.ranPastTheEnd || visit.refused)
            return;
        const bool isAbsent = std::string(field.member) == "absent";
        const std::string value = isAbsent ? "" : std::to_string(valueOf(id, field));
        std::string row = name + '\t' + value + "\tProp\t" + std::to_string(id);
        row.append("\t").append(field.member);
        if (field.index >= 0)
            row += '\t' + std::to_string(field.index);
        inputs.append(row);
        log.push_back("DEBUG: Added variable to Input list Variable Name=" + name +
                      " value=" + value + " EntityType=Prop ID=" + std::to_string(id));
    }
};

class Outputs : public BothWays
{
public:
    explicit Outputs(Random& random) : BothWays(random)
    {
        femap::neutral::OutputSet set;
        set.id = 1;
        for (int id = 1; id <= 3; ++id) {
            femap::neutral::OutputVector vector;
            vector.id = id;
            vector.title = "Total-Trans/lation T" + std::to_string(id);
            vector.minval = -id;
            vector.maxval = id;
            for (int node = id; node <= mostIds; ++node) {  // the first nodes have no value
                vector.ids.push_back(node);
                vector.values.push_back(10 * node + id);
            }
            set.vectors.put(std::move(vector));
        }
        f.model().outputSets.put(std::move(set));
        for (int id = 1; id <= mostIds; ++id) {
            femap::neutral::Node node;
            node.id = id;
            f.model().nodes.put(node);
        }
        addOldRows(f.form.OutputsList, outputs, "1\t1\tOutput");
    }

private:
    std::string oldName() override
    {
        return random_.oneIn(2) ? BothWays::oldName()
                                : "TotalTrans" + number(4) + "AtNode" + number(mostIds + 1);
    }

    void update() override
    {
        std::vector<std::string> vectors;
        for (int id = 1; id <= 3; ++id)
            if (random_.oneIn(2))
                vectors.push_back(std::to_string(id) + " ");
        switch (random_.below(5)) {
        case 0:
            return updateMass();
        case 1:
            selection::UpdateOutputList(f.context, "Node", nullptr, vectors);
            for (const std::string& vector : vectors)
                extremes(std::stoi(vector));
            return outputs.tidy();
        default:
            return updateValues(vectors);
        }
    }

    void updateValues(const std::vector<std::string>& vectors)
    {
        const std::vector<int> ids = someIds(random_);
        const auto set = setOf(femap::EntityType::Node, ids);
        const std::vector<int> setIDs = set->ids();
        selection::UpdateOutputList(f.context, "Node", &setIDs, vectors);

        for (const std::string& text : vectors) {
            const int vector = std::stoi(text);
            for (const int id : ids) {
                const std::string keys =
                    std::to_string(id) + '\t' + std::to_string(vector) + "\tOutput";
                const std::string name =
                    "TotalTrans" + std::to_string(vector) + "AtNode" + std::to_string(id);
                updatePlain(name, "Output List",
                            id < vector ? "" : std::to_string(10 * id + vector), keys);
            }
        }
        outputs.tidy();
    }

    void extremes(int vector)
    {
        const std::string id = std::to_string(vector);
        const std::string start = "TotalTranslati";
        updatePlain(start + "MaxAtNode" + id, "Output List", id, id + '\t' + id + "\tmaxval");
        updatePlain(start + "MinAtNode" + id, "Input List", "-" + id,
                    id + '\t' + id + "\tminval");  // sic
    }

    void updateMass()
    {
        selection::UpdateOutputList(f.context, "MeshMass", nullptr, {"5", "0"});

        // Nothing is meshed. No scan for rows of the same name either.
        const auto added = [&](const std::string& name, const std::string& tag) {
            outputs.append(name + "\t0\t" + tag + "\t\tMassProperties");
            log.push_back("DEBUG: Added variable to Output list Variable Name=" + name +
                          "  value=0");
        };
        added("TotalMass", "MassTotal");
        added("TotalLength", "Length");
        outputs.tidy();
    }

    // value: empty where the vector has none.
    void updatePlain(const std::string& name, const char* list, const std::string& value,
                     const std::string& keys)
    {
        const PlainGrid::Visit visit = outputs.visit(name);
        logDeleted(visit, name, list);
        if (visit.refused || value.empty())
            return;
        outputs.append(name + '\t' + value + '\t' + keys);
        log.push_back("DEBUG: Added variable to Output list Variable Name=" + name +
                      " value=" + value);
    }
};

template <class Way>
void compareManyTimes()
{
    Random random(fake::randomSeed());
    for (int round = 0; round < roundsOfGrids && !testing::Test::HasFailure(); ++round)
        Way(random).compare();
}

}  // namespace

TEST(RandomUpdatesOfTheInputs, LeaveTheRowsThatAVisitOfEveryRowWouldLeave)
{
    compareManyTimes<Inputs>();
}

TEST(RandomUpdatesOfTheOutputs, LeaveTheRowsThatAVisitOfEveryRowWouldLeave)
{
    compareManyTimes<Outputs>();
}

}  // namespace property
