// The base of all objects of the stand-in, reached through IDispatch alone, as FEMAP's are. Each
// class says in a table how it serves its members. How they are called, and which FEMAP has them,
// FEMAP's type libraries tell; whether a call keeps to that is checked here.
#pragma once

#include "femap/Constants.h"
#include "femap/TypeLibrary.h"
#include "standin/Arguments.h"
#include "standin/Fault.h"
#include "standin/Modes.h"

#include <windows.h>

#include <oleauto.h>
#include <optional>
#include <span>
#include <string>
#include <type_traits>
#include <utility>

namespace standin
{

namespace library = femap::library;
using femap::EntityType;
using femap::ReturnCode;

class Server;

// What most members return.
constexpr int ok = static_cast<int>(ReturnCode::Ok);
constexpr int failed = static_cast<int>(ReturnCode::Fail);

class Object : public IDispatch
{
public:
    Object(Server& server, std::string_view kind);
    virtual ~Object();
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* numbers) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID number, REFIID, LCID, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                     UINT* wrongArgument) override;

    Server& server() const { return server_; }

protected:
    /// What FEMAP's type libraries tell of its members.
    virtual std::span<const library::Member> declared() const = 0;
    // The rows of the table, counted from 0.
    virtual std::size_t memberCount() const = 0;
    virtual std::string_view nameOf(std::size_t row) const = 0;
    virtual bool canBePut(std::size_t row) const = 0;
    virtual Variant serve(std::size_t row, Arguments& arguments) = 0;
    /// The value is the last argument.
    virtual void put(std::size_t row, Arguments& arguments) = 0;
    /// Whether its arrays are columns of values of many entities.
    virtual bool returnsColumns() const { return true; }
    /// The last reference was given back.
    virtual void unreferenced() { delete this; }

    ULONG references() const { return references_; }
    std::optional<Fault> faultOf(std::string_view member) const;

private:
    /// A member that this FEMAP has: how it is declared, and the row that serves it.
    struct Found
    {
        const library::Member* declaration;
        std::size_t row;
    };
    template <class Matches>
    std::optional<Found> findMember(const Matches& matches) const;
    template <class Matches>
    std::optional<Found> findOf(unsigned version, const Matches& matches) const;
    bool isSuperseded(const library::Member& member) const;
    std::optional<std::size_t> rowOf(std::string_view name) const;
    Variant serveAsTold(const Found& member, Arguments& arguments);
    void putAsTold(std::size_t row, Arguments& arguments);
    void reshapeAll(Variant& returned, Arguments& arguments) const;
    HRESULT call(const Found& member, WORD flags, DISPPARAMS& parameters, VARIANT* result,
                 EXCEPINFO* exception, UINT* wrongArgument);
    HRESULT carryOut(const Found& member, bool isPut, Arguments& arguments, VARIANT* result,
                     EXCEPINFO* exception);

    Server& server_;
    std::string_view kind_;
    ULONG references_ = 1;
};

/// How a class of objects serves one member.
template <class Self>
struct Member
{
    std::string_view name;
    Variant (*serve)(Self& self, Arguments& arguments);
    void (*put)(Self& self, Arguments& arguments) = nullptr;  // none: it cannot be written
};

// Argument i in the type that a function takes.
template <class Parameter>
decltype(auto) argument(Arguments& arguments, std::size_t i)
{
    using Plain = std::remove_cvref_t<Parameter>;
    if constexpr (std::is_same_v<Plain, Arguments>)
        return arguments;
    else if constexpr (std::is_same_v<Plain, int>)
        return arguments.number(i);
    else if constexpr (std::is_same_v<Plain, bool>)
        return arguments.flag(i);
    else if constexpr (std::is_same_v<Plain, EntityType>)
        return static_cast<EntityType>(arguments.number(i));
    else if constexpr (std::is_same_v<Plain, std::string>)
        return arguments.text(i);
    else
        return arguments.numbers(i);
}

template <class Owner, class Result, class... Parameters, std::size_t... indices>
Variant serveWith(Owner& owner, Result (Owner::*function)(Parameters...), Arguments& arguments,
                  std::index_sequence<indices...>)
{
    return Variant((owner.*function)(argument<Parameters>(arguments, indices)...));
}

template <class Owner, class Result, class... Parameters>
Variant serveWith(Owner& owner, Result (Owner::*function)(Parameters...), Arguments& arguments)
{
    return serveWith(owner, function, arguments, std::index_sequence_for<Parameters...>());
}

/// Serves a member by a data member, or by a function that takes single arguments or Arguments.
template <auto target, class Self>
Variant serve(Self& self, Arguments& arguments)
{
    if constexpr (std::is_member_object_pointer_v<decltype(target)>)
        return Variant(self.*target);
    else
        return serveWith(self, target, arguments);
}

/// IDs and titles of the rows in a range; 0, 0: of all.
template <class Rows>
std::pair<std::vector<int>, std::vector<std::string>> titlesIn(const Rows& rows, int least,
                                                               int most, const Modes& modes)
{
    std::pair<std::vector<int>, std::vector<std::string>> found;
    for (const auto& row : rows)
        if (row.id >= least && (most == 0 || row.id <= most)) {
            const bool isUntitled = modes[Mode::Untitled] && row.title.empty();
            found.first.push_back(row.id);
            found.second.push_back(isUntitled ? "Untitled" : row.title);
        }
    return found;
}

/// Whether a table of members names each of them once, and only what FEMAP's type libraries
/// declare.
template <class Table>
constexpr bool areDeclared(const Table& table, std::span<const library::Member> declared)
{
    for (std::size_t i = 0; i < std::size(table); ++i) {
        if (library::find(declared, table[i].name) == nullptr)
            return false;
        for (std::size_t j = 0; j < i; ++j)
            if (femap::isSameName(table[i].name, table[j].name))
                return false;
    }
    return true;
}

/// An object of the class Self, whose table is Self::members(), of an interface of FEMAP's.
template <class Self>
class ObjectOf : public Object
{
public:
    using Object::Object;

protected:
    std::span<const library::Member> declared() const override { return Self::declarations; }
    std::size_t memberCount() const override { return Self::members().size(); }
    std::string_view nameOf(std::size_t row) const override { return Self::members()[row].name; }
    bool canBePut(std::size_t row) const override { return Self::members()[row].put != nullptr; }
    Variant serve(std::size_t row, Arguments& arguments) override
    {
        return Self::members()[row].serve(static_cast<Self&>(*this), arguments);
    }
    void put(std::size_t row, Arguments& arguments) override
    {
        Self::members()[row].put(static_cast<Self&>(*this), arguments);
    }
};

}  // namespace standin
