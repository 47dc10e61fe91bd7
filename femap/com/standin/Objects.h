#pragma once

#include "femap/Objects.h"
#include "femap/com/standin/Object.h"
#include "femap/embedded/Model.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace femap::com::standin
{

/// A vector's value at a node or element; none where it has none.
std::optional<double> valueAt(const embedded::OutputVector& vector, int entity);

/// The same at several, with a number in place of what is missing.
std::vector<double> valuesAt(const embedded::OutputVector& vector, const std::vector<int>& ids,
                             double otherwise);

/// "feOutput" of FEMAP before 2020.1: a vector of the output set that setID names.
class OutputObject : public ObjectOf<OutputObject>
{
public:
    explicit OutputObject(Server& server) : ObjectOf(server, "feOutput") {}

    static std::span<const Member<OutputObject>> members();

    int get(int id);
    int getFromSet(int set, int id);
    double value(int entity);
    int getOutputListAtSet(Arguments& arguments);
    int getScalarAtSet(Arguments& arguments);
    int getTitleList(Arguments& arguments);

    int setID = 1;
    embedded::OutputVector vector;
};

class OutputSetObject : public ObjectOf<OutputSetObject>
{
public:
    explicit OutputSetObject(Server& server) : ObjectOf(server, "feOutputSet") {}

    static std::span<const Member<OutputSetObject>> members();

    int get(int id);
    /// The vectors of the loaded set into a set object.
    int outputVectors(int set);

    embedded::OutputSet loaded;
};

/// "feResults": a table whose columns are output vectors.
class ResultsObject : public ObjectOf<ResultsObject>
{
public:
    explicit ResultsObject(Server& server) : ObjectOf(server, "feResults") {}

    static std::span<const Member<ResultsObject>> members();

    int clear();
    /// Restricts the rows to the entities of a set.
    int dataNeeded(int location, int set);
    int addColumn(Arguments& arguments);
    int populate();
    int numberOfRows();
    int numberOfColumns();
    int getColumn(Arguments& arguments);
    int getColumnMinMax(Arguments& arguments);
    int getValue(Arguments& arguments);
    int entityValue(Arguments& arguments);
    int vectorTitle(Arguments& arguments);
    int vectorTitles(Arguments& arguments);
    int vectors(int set, int target, bool clearFirst);
    int vectorExists(int set, int vector);
    int vectorInfo(Arguments& arguments);

    double valueForNonExisting = 0;

private:
    const embedded::OutputVector* find(int set, int vector);
    const embedded::OutputVector* column(int index) const;

    std::vector<embedded::OutputVector> columns_;
    std::optional<std::vector<int>> rows_;  // all that have a value when nothing else is said
    bool populated_ = false;
};

class FunctionObject : public ObjectOf<FunctionObject>
{
public:
    explicit FunctionObject(Server& server) : ObjectOf(server, "feFunction") {}

    static std::span<const Member<FunctionObject>> members();

    int get(int id);
    int selectID(const std::string& title);
    int getFunctionList(Arguments& arguments);

    embedded::Function loaded;
};

class LoadDefinitionObject : public ObjectOf<LoadDefinitionObject>
{
public:
    explicit LoadDefinitionObject(Server& server);

    static std::span<const Member<LoadDefinitionObject>> members();

    int get(int id);
    int resetNextLoad();
    int nextLoad(Arguments& arguments);
    int countLoads();

    int setID = 1;
    embedded::LoadDefinition loaded;

private:
    // Walks the loads of the definition.
    std::unique_ptr<LoadDefinition> walk_;
};

// The loads that a definition hands out, by its data type; null for a type that has none.
IDispatch* makeLoad(Server& server, int dataType, std::unique_ptr<MemberObject> load);

}  // namespace femap::com::standin
