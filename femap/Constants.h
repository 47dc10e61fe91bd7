// FEMAP's numbers: return codes, kinds of entities, elements and loads, message colours, events.
#pragma once

namespace femap
{

/// Status that FEMAP's methods return.
enum class ReturnCode : int
{
    Ok = -1,
    Fail = 0,
    Cancel = 2,
    NotExist = 4,
    NotAvailable = 6,
    BadData = 9,
    NegativeMass = 11,    // the measurement gives values nevertheless
    FileOpenFailed = 15,  // of newer versions, as is the last one
    NoFileName = 16,
    FileWriteFailed = 17,
};

/// FEMAP's numbers for kinds of entities.
enum class EntityType : int
{
    Node = 7,
    Element = 8,
    Material = 10,
    Property = 11,
    LoadSet = 12,
    OutputSet = 28,
    OutputVector = 29,
    Function = 35,
    LoadDefinition = 46,
    AnalysisSet = 60,
};

/// FEMAP's numbers for kinds of elements and of the properties that they use.
enum ElementType : int
{
    elementRod = 1,
    elementBar = 2,
    elementTube = 3,
    elementLink = 4,
    elementBeam = 5,
    elementSpring = 6,
    elementDofSpring = 7,
    elementCurvedBeam = 8,
    elementGap = 9,
    elementPlotOnly = 10,
    elementShear = 11,
    elementShearParabolic = 12,
    elementMembrane = 13,
    elementMembraneParabolic = 14,
    elementBending = 15,
    elementBendingParabolic = 16,
    elementPlate = 17,
    elementPlateParabolic = 18,
    elementPlaneStrain = 19,
    elementPlaneStrainParabolic = 20,
    elementLaminate = 21,
    elementLaminateParabolic = 22,
    elementAxisymmetric = 23,
    elementAxisymmetricParabolic = 24,
    elementSolid = 25,
    elementSolidParabolic = 26,
    elementMass = 27,
    elementMassMatrix = 28,
    elementRigid = 29,
    elementGeneralMatrix = 30,
    elementCurvedTube = 31,
    elementPlotPlate = 32,
    elementSlideLine = 33,
    elementContact = 34,
    elementAxisymmetricShell = 35,
    elementAxisymmetricShellParabolic = 36,
    elementBeamParabolic = 37,
    elementWeld = 38,
    elementLaminateSolid = 39,
    elementLaminateSolidParabolic = 40,
    elementSpringToGround = 41,
    elementDofSpringToGround = 42,
    elementCohesive = 43,
    elementCohesiveParabolic = 44,
    elementMatrix = 45,
};

/// What the loads of a load definition are attached to.
enum class LoadDataType : int
{
    Mesh = 13,
    Geometry = 14,
    NodalTemperature = 15,
    ElementalTemperature = 16,
};

/// Colours of FEMAP's message window.
enum class MessageColour : int
{
    Normal = 0,
    Highlight = 1,
    Warning = 2,
    Error = 3,
    Command = 4,
};

/// What FEMAP tells an add-in through its event message.
enum class EventCode : int
{
    NewModel = 2,
    EndModel = 3,
    Shutdown = 4,
};

}  // namespace femap
