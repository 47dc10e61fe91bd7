#include "probe/Names.h"

#include "femap/TypeLibrary.h"
#include "probe/TypeInformation.h"

#include <optional>

namespace probe
{

namespace
{

using femap::library::Interface;
using femap::library::Kind;
using femap::library::Member;

VARTYPE typeOf(char letter)
{
    switch (letter) {
    case 'i':
        return VT_I4;
    case 'l':
        return VT_I8;
    case 'd':
        return VT_R8;
    case 'b':
        return VT_BOOL;
    case 's':
        return VT_BSTR;
    case 'v':
        return VT_VARIANT;
    case 'o':
        return VT_DISPATCH;
    default:  // one that FEMAP fills
        return static_cast<VARTYPE>(VT_BYREF | typeOf(static_cast<char>(letter - 'A' + 'a')));
    }
}

std::string signatureText(const std::vector<VARTYPE>& types, VARTYPE returned, bool isMethod)
{
    std::string text = isMethod ? "method (" : "property (";
    for (std::size_t i = 0; i < types.size(); ++i)
        text += (i == 0 ? "" : ", ") + typeText(types[i]);
    return text + ") " + typeText(returned);
}

std::vector<VARTYPE> argumentsOf(const Member& member)
{
    std::vector<VARTYPE> types;
    for (const char letter : member.arguments)
        types.push_back(typeOf(letter));
    return types;
}

std::string signatureText(const Member& member)
{
    return signatureText(argumentsOf(member), typeOf(member.returned), member.kind == Kind::Method);
}

unsigned versionsOf(Generation generation)
{
    return generation == Generation::Classic ? femap::library::v11_2 : femap::library::since2021;
}

/// Whether the tool believes that FEMAP has the member; none: versions differ in that.
std::optional<bool> isBelieved(const Member& member, Generation generation)
{
    const unsigned versions = versionsOf(generation);
    if ((member.versions & versions) == 0)
        return false;
    return (member.versions & versions) == versions ? std::optional(true) : std::nullopt;
}

// How the type information differs from the table; empty: it does not.
std::string differenceOf(const Member& member, const Declared& declared)
{
    if (declared.arguments == argumentsOf(member) && declared.returned == typeOf(member.returned) &&
        declared.isMethod == (member.kind == Kind::Method))
        return {};
    return "declared as " +
           signatureText(declared.arguments, declared.returned, declared.isMethod) +
           "; believed: " + signatureText(member);
}

void probeMember(Session& session, const Object& object, const Member& member,
                 Generation generation, const std::optional<Declarations>& declarations)
{
    const std::optional<bool> believed = isBelieved(member, generation);
    session.report.begin(object.name() + '.' + std::string(member.name));
    DISPID number = DISPID_UNKNOWN;
    const Answer answer = object.look(std::string(member.name), number);
    if (!answer.isDone()) {
        const bool isUnknown = answer.result == DISP_E_UNKNOWNNAME;
        session.tell(!isUnknown         ? Verdict::Refused
                     : !believed        ? Verdict::Found
                     : believed.value() ? Verdict::Absent
                                        : Verdict::Same,
                     isUnknown ? "absent" : session.reason(answer), answer);
        return;
    }
    std::string text = "number " + std::to_string(number);
    Verdict verdict = Verdict::Same;
    if (believed == false) {
        text += "; believed: absent in this version";
        verdict = Verdict::Found;
    }
    if (number != member.number) {
        text += "; believed: " + std::to_string(member.number);
        verdict = Verdict::Differs;
    }
    if (declarations) {
        const auto declared = declarations->find(number);
        const std::string difference = declared == declarations->end()
                                           ? "not in the type information"
                                           : differenceOf(member, declared->second);
        text += difference.empty() ? ", types as believed" : "; " + difference;
        verdict = difference.empty() ? verdict : Verdict::Differs;
    }
    session.tell(verdict, text, answer);
}

void probeInterface(Session& session, const Object& object, const Interface& table,
                    Generation generation)
{
    std::string why;
    const std::optional<Declarations> declarations = declarationsOf(*object.raw(), why);
    session.report.line(std::string(table.name) + ": type information", Verdict::Found,
                        declarations ? std::to_string(declarations->size()) + " members" : why);
    for (const Member& member : table.members) {
        // Of two rows with one name the one for this generation.
        const Member* const own = find(table.members, member.name, versionsOf(generation));
        if (own == nullptr || own == &member)
            probeMember(session, object, member, generation, declarations);
    }
}

}  // namespace

Generation generationOf(Session& session, const Object& application)
{
    const bool isModern = application.object("feResults").has("VectorsV2");
    session.report.line("generation, by feResults.VectorsV2", Verdict::Found,
                        isModern ? "since 2020.1" : "before 2020.1");
    return isModern ? Generation::Modern : Generation::Classic;
}

void probeNames(Session& session, const Object& application, Generation generation)
{
    session.report.section("B Names, numbers and types of members");
    for (const Interface& table : femap::library::interfaces) {
        if (table.object.empty()) {
            probeInterface(session, application, table, generation);
            continue;
        }
        const std::string name(table.object);
        const Object object = application.object(name);
        if (object.isThere())
            probeInterface(session, object, table, generation);
        else
            session.report.line(name, Verdict::NotTried, "FEMAP hands out no such object");
    }
}

}  // namespace probe
