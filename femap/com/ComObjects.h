// FEMAP's objects over COM: entities, sets, output vectors, functions and loads.
#pragma once

#include "femap/Objects.h"
#include "femap/SelectionDialogs.h"
#include "femap/com/Dispatch.h"

#include <memory>
#include <optional>
#include <string>

namespace femap::com
{

struct BulkCapabilities;
class VectorEntities;

/// What each of these objects needs from its application.
struct ComContext
{
    Dispatch& application;
    SelectionDialogs* dialogs;  // answers in place of the engineer; null: FEMAP shows its dialogs
    bool classic;               // FEMAP before 2020.1: no results by the names that end in V2
    std::shared_ptr<BulkCapabilities> bulk;  // null: everything is read one by one
    const int& locks;                        // how often FEMAP is locked
};

/// The output set whose results are read: the active one, or the first when none is active; 0 when
/// there are no results.
int activeOutputSet(Dispatch& application);

/// A vector's ID in the numbering before 2020.1; a FEMAP that does not convert has no other.
int classicVectorID(const ComContext& context, int vectorID);

/// Adds a vector to a results table that is not populated yet, and returns the column's index.
int addColumn(Dispatch& results, int outputSet, int vectorID);

/// The next load of a definition, its kind not known yet; none at the end.
std::optional<Dispatch> nextLoad(Dispatch& definition);
Dispatch asLoadOfItsKind(Dispatch load);

/// What FEMAP returned for a member; control characters in text are blanks.
femap::Value readable(const Variant& returned);

/// Raises RuntimeError for a place that an array member of FEMAP's lacks, as far as FEMAP tells.
void demandPlace(Dispatch& object, const std::string& name, int index);

/// An object of FEMAP's whose members are read by name.
template <class Interface>
class ByName : public Interface
{
public:
    explicit ByName(Dispatch object) : object_(std::move(object)) {}

    femap::Value member(const std::string& name) override { return readable(object_.call(name)); }
    femap::Value member(const std::string& name, int index) override
    {
        femap::Value value = readable(object_.call(name, index));
        demandPlace(object_, name, index);
        return value;
    }

    /// The object itself, for bulk calls.
    Dispatch& object() { return object_; }

protected:
    Dispatch object_;
};

using ComLoad = ByName<MemberObject>;

class ComEntity : public ByName<Entity>
{
public:
    using ByName::ByName;

    ReturnCode Get(int id) override;
    int Type() override;
};

class ComSet : public EntitySet
{
public:
    ComSet(ComContext context, Dispatch object)
        : context_(std::move(context)), object_(std::move(object))
    {}

    int ID() override;
    int count() override;
    void Reset() override;
    int Next() override;
    std::vector<int> ids() override;
    ReturnCode AddAll(EntityType type) override;
    ReturnCode Copy(int setID) override;
    ReturnCode Select(EntityType type, bool clear, const std::string& title) override;
    ReturnCode SelectMultiID(EntityType type, int ownerSet, const std::string& title) override;

private:
    ReturnCode addOutputVectors();
    ReturnCode fillFromAnswer(EntityType type, const std::string& title);
    template <class Ask>
    ReturnCode askAlsoUnlocked(const Ask& ask);

    ComContext context_;
    Dispatch object_;
};

/// A vector of the active output set through feOutput.
class ClassicOutputVector : public ByName<OutputVector>
{
public:
    explicit ClassicOutputVector(const ComContext& context);

    ReturnCode Get(int vectorID) override;
    int ID() override;
    std::string Title() override;
    int classicID() override { return ID(); }
    double Value(int entityID) override;
    double maxval() override;
    double minval() override;

    int outputSet() const { return set_; }
    VectorEntities& entities() { return *entities_; }

private:
    int set_;
    int vector_ = 0;
    std::shared_ptr<VectorEntities> entities_;
};

/// The same through feResults, where vectors have no object of their own.
class ModernOutputVector : public OutputVector
{
public:
    explicit ModernOutputVector(ComContext context);

    /// Serves the members of a vector that the program reads by name: "maxval", "minval".
    femap::Value member(const std::string& name) override;
    femap::Value member(const std::string& name, int index) override;
    ReturnCode Get(int vectorID) override;
    int ID() override { return vector_; }
    std::string Title() override;
    int classicID() override;
    double Value(int entityID) override;
    double maxval() override { return extremes().maximum; }
    double minval() override { return extremes().minimum; }

    /// For calls that need no column.
    Dispatch& results() { return results_; }
    int outputSet() const { return set_; }
    VectorEntities& entities() { return *entities_; }

private:
    struct Extremes
    {
        double minimum;
        double maximum;
    };
    Extremes extremes();

    ComContext context_;
    Dispatch results_;
    int set_;
    int vector_ = 0;
    std::shared_ptr<VectorEntities> entities_;
};

class ComFunction : public Function
{
public:
    ComFunction(ComContext context, Dispatch object)
        : context_(std::move(context)), object_(std::move(object))
    {}

    ReturnCode SelectID(const std::string& title) override;
    ReturnCode Get(int id) override;
    int ID() override;
    std::string title() override;
    FunctionPoints GetFunctionList() override;

private:
    ComContext context_;
    Dispatch object_;
};

class ComLoadDefinition : public LoadDefinition
{
public:
    explicit ComLoadDefinition(Dispatch object) : object_(std::move(object)) {}

    ReturnCode Get(int loadSet, int id) override;
    std::string title() override;
    int setID() override;
    int ID() override;
    int loadType() override;
    int dataType() override;
    void ResetNextLoad() override;
    std::unique_ptr<MemberObject> NextLoad() override;

private:
    Dispatch object_;
};

}  // namespace femap::com
