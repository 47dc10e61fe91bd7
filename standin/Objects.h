// The stand-in's objects for results, functions and load definitions.
#pragma once

#include "femap/embedded/HostLoads.h"
#include "femap/embedded/HostObjects.h"
#include "femap/neutral/Model.h"
#include "standin/Object.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace standin
{

namespace embedded = femap::embedded;
namespace neutral = femap::neutral;

/// The values at several entities, with otherwise where there is none.
std::vector<double> valuesAt(const neutral::OutputVector& vector, const std::vector<int>& ids,
                             double otherwise);

/// "feOutput" of FEMAP before 2020.1: a vector of the output set that setID names.
class OutputObject : public ObjectOf<OutputObject>
{
public:
    explicit OutputObject(Server& server);

    static constexpr std::span<const library::Member> declarations = library::IOutput;
    static std::span<const Member<OutputObject>> members();

    int get(int id);
    int getFromSet(int set, int id);
    double value(int entity);
    int getOutputListAtSet(Arguments& arguments);
    int getScalarAtSet(Arguments& arguments);
    int getTitleList(Arguments& arguments);

    int setID;
    embedded::HostOutputVector vector;
};

class OutputSetObject : public ObjectOf<OutputSetObject>
{
public:
    explicit OutputSetObject(Server& server) : ObjectOf(server, "feOutputSet") {}

    static constexpr std::span<const library::Member> declarations = library::IOutputSet;
    static std::span<const Member<OutputSetObject>> members();

    int get(int wanted);
    /// The vectors of the loaded set into a set object.
    int outputVectors(int set);

    int id = 0;
    std::string title;
    double value = 0;
};

/// "feResults": a table whose columns are output vectors.
class ResultsObject : public ObjectOf<ResultsObject>
{
public:
    explicit ResultsObject(Server& server) : ObjectOf(server, "feResults") {}

    static constexpr std::span<const library::Member> declarations = library::IResults;
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
    /// The nodes or elements that have data in a vector into a set object.
    int vectorEntities(int set, int vector, int target, bool clearFirst);
    int vectorExists(int set, int vector);
    int vectorInfo(Arguments& arguments);

    double valueForNonExisting = 0;

private:
    struct Title
    {
        int id;
        std::string title;
    };
    int fillSet(int target, bool clearFirst, const std::vector<int>& ids);
    std::vector<Title> shownVectors(const neutral::OutputSet& set) const;
    int fillValue(Arguments& arguments, std::size_t i, const double* value) const;
    std::optional<embedded::HostOutputVector> find(int set, int vector);
    /// Null for a column that cannot be read.
    const neutral::OutputVector* column(int index) const;

    std::vector<embedded::HostOutputVector> columns_;
    std::optional<std::vector<int>> rows_;  // none: the entities that have a value
    bool populated_ = false;
};

class FunctionObject : public ObjectOf<FunctionObject>
{
public:
    explicit FunctionObject(Server& server);

    static constexpr std::span<const library::Member> declarations = library::IFunction;
    static std::span<const Member<FunctionObject>> members();

    int get(int id) { return static_cast<int>(function.Get(id)); }
    int store(int id) { return static_cast<int>(function.Put(id)); }
    int selectID(const std::string& title);
    int getFunctionList(Arguments& arguments);
    /// Into the object; nothing reaches the model.
    int putFunctionList(Arguments& arguments);

    embedded::HostFunction function;
};

class LoadDefinitionObject : public ObjectOf<LoadDefinitionObject>
{
public:
    explicit LoadDefinitionObject(Server& server);

    static constexpr std::span<const library::Member> declarations = library::ILoadDefinition;
    static std::span<const Member<LoadDefinitionObject>> members();

    int get(int id);
    int store(int id);
    int resetNextLoad();
    int nextLoad(Arguments& arguments);
    int countLoads();

    int setID = 1;
    neutral::LoadDefinition loaded;

private:
    bool walkOn();

    // Walks the loads of the definition; in one mode then those of other definitions of other
    // kinds.
    embedded::HostLoadDefinition walk_;
    int walked_ = 0;  // the definition that the walk has reached
};

/// A load of some definition.
struct LoadOf
{
    std::unique_ptr<embedded::HostLoad> load;
    int dataType;
    int definitionID;
};

// The load object that a definition hands out; null for an unknown data type.
IDispatch* makeLoad(Server& server, LoadOf load);

}  // namespace standin
