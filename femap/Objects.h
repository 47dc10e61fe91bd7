// FEMAP's objects as the program uses them: entities, sets, output vectors, functions and loads.
// Every operation raises sys::RuntimeError when FEMAP refuses or lacks it, ConnectionLost when
// FEMAP is gone and WaitEnded when nobody waits for it any more. A status that FEMAP returns is not
// an error here: the caller gets it.
#pragma once

#include "femap/Constants.h"
#include "femap/Names.h"
#include "femap/Value.h"

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace femap
{

/// FEMAP ended or can no longer be reached. Not a RuntimeError, for nothing may ignore it.
class ConnectionLost : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// The engineer ended the wait for a FEMAP that is busy. Not a RuntimeError, for it ends the
/// procedure.
class WaitEnded : public std::runtime_error
{
public:
    WaitEnded(const std::string& what, bool mayBeCarriedOut)
        : std::runtime_error(what), mayBeCarriedOut_(mayBeCarriedOut)
    {}

    /// Whether FEMAP has taken the call, and may do what it asks for.
    bool mayBeCarriedOut() const { return mayBeCarriedOut_; }

private:
    bool mayBeCarriedOut_;
};

/// What is said where an output vector has no value.
std::string noValueText(int vectorID, int entityID);

/// An object whose members are read by name. Names are case-insensitive; an unknown name and an
/// index that the member lacks raise.
class MemberObject
{
public:
    virtual ~MemberObject() = default;

    virtual Value member(const std::string& name) = 0;
    /// The element of an array member, counted from 0.
    virtual Value member(const std::string& name, int index) = 0;
};

/// The name of a member, with an index when it is one element of an array member.
struct MemberName
{
    std::string name;
    std::optional<int> index = std::nullopt;

    bool operator==(const MemberName&) const = default;
};

/// "feNode", "feElem", "feProp" or "feMatl": holds a copy of one entity at a time.
class Entity : public MemberObject
{
public:
    /// Loads the entity; any code but Ok leaves what was loaded before.
    virtual ReturnCode Get(int id) = 0;
    /// The number of the loaded entity's sub-type.
    virtual int Type() = 0;
    /// Announces which entities will be loaded next, IDs ascending, and which of their members will
    /// be read ("type" for Type()), so that they can be fetched in few calls. Changes no answer.
    /// The next announcement replaces this one.
    virtual void prefetch(const std::vector<int>& ids, const std::vector<MemberName>& members);
};

/// A sorted set of IDs that FEMAP keeps under an ID of its own.
class EntitySet
{
public:
    virtual ~EntitySet() = default;

    virtual int ID() = 0;
    virtual int count() = 0;
    virtual void Reset() = 0;
    /// The next ID in ascending order, 0 at the end.
    virtual int Next() = 0;
    /// All IDs in ascending order. Moves the walk with Next; call Reset before the next walk.
    virtual std::vector<int> ids();
    /// Adds all entities of a kind; output vectors are those of the active output set.
    virtual ReturnCode AddAll(EntityType type) = 0;
    /// Becomes a copy of another set.
    virtual ReturnCode Copy(int setID) = 0;
    /// Lets the engineer pick entities. The title is shown in FEMAP's dialog.
    virtual ReturnCode Select(EntityType type, bool clear, const std::string& title) = 0;
    /// The same with a list of titles; ownerSet is the load or output set the entities live in.
    virtual ReturnCode SelectMultiID(EntityType type, int ownerSet, const std::string& title) = 0;
};

/// A vector of results and the IDs, ascending, of the entities whose values will be read.
struct VectorReading
{
    int vectorID = 0;
    std::vector<int> entityIDs{};
};

/// One vector of results ("feOutput") of the active output set.
class OutputVector : public MemberObject
{
public:
    virtual ReturnCode Get(int vectorID) = 0;
    virtual int ID() = 0;
    virtual std::string Title() = 0;
    /// The ID in the numbering that sorts vectors by kind (that of FEMAP before 2020.1).
    virtual int classicID() = 0;
    /// The value at a node or element. Raises where the vector has none.
    virtual double Value(int entityID) = 0;
    virtual double maxval() = 0;
    virtual double minval() = 0;
    /// Announces which vectors will be loaded next, IDs ascending, and which values read, so
    /// that they can be fetched in few calls. Changes no answer. The next announcement replaces it.
    virtual void prefetch(std::vector<VectorReading> plan);
};

struct FunctionPoints
{
    std::vector<double> x;
    std::vector<double> y;  // as many as x
};

/// A table of X-Y pairs ("feFunction").
class Function
{
public:
    virtual ~Function() = default;

    /// Lets the engineer pick one function and loads it.
    virtual ReturnCode SelectID(const std::string& title) = 0;
    virtual ReturnCode Get(int id) = 0;
    virtual int ID() = 0;
    virtual std::string title() = 0;
    /// The points of the loaded function in FEMAP's order.
    virtual FunctionPoints GetFunctionList() = 0;
};

/// A named group of loads ("feLoadDefinition").
class LoadDefinition
{
public:
    virtual ~LoadDefinition() = default;

    /// Loads the definition from the load set.
    virtual ReturnCode Get(int loadSet, int id) = 0;
    virtual std::string title() = 0;
    virtual int setID() = 0;
    virtual int ID() = 0;
    virtual int loadType() = 0;
    virtual int dataType() = 0;
    virtual void ResetNextLoad() = 0;
    /// The next load, whose members follow the data type; nothing at the end.
    virtual std::unique_ptr<MemberObject> NextLoad() = 0;
};

/// What FEMAP measures of a set of elements, in model units.
struct MassProperties
{
    double length = 0;
    double area = 0;
    double volume = 0;
    double structuralMass = 0;
    double nonStructuralMass = 0;
    double totalMass = 0;
    std::vector<double> structuralCG = std::vector<double>(3);
    std::vector<double> nonStructuralCG = std::vector<double>(3);
    std::vector<double> totalCG = std::vector<double>(3);
    std::vector<double> inertia = std::vector<double>(6);    // xx, xy, yy, zx, yz, zz at the origin
    std::vector<double> inertiaCG = std::vector<double>(6);  // the same at the centre of gravity
    bool isNegative = false;  // a solid's corners are numbered the wrong way round
};

}  // namespace femap
