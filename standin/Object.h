// The base of all objects of the stand-in, reached through IDispatch alone, as FEMAP's are. Each
// class lists its members in a table; their names, argument counts and types are checked here.
#pragma once

#include "femap/Constants.h"
#include "standin/Arguments.h"
#include "standin/Fault.h"
#include "standin/Signature.h"

#include <windows.h>

#include <oleauto.h>
#include <span>
#include <string>
#include <type_traits>
#include <utility>

namespace standin
{

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
    // The rows of the table, counted from 0.
    virtual std::size_t memberCount() const = 0;
    virtual const Signature& signature(std::size_t row) const = 0;
    virtual Variant serve(std::size_t row, Arguments& arguments) = 0;
    /// The kind of value that can be put; null when the member cannot be written.
    virtual const Type* putType(std::size_t row) const = 0;
    /// The value is the last argument.
    virtual void put(std::size_t row, Arguments& arguments) = 0;
    /// The last reference was given back.
    virtual void unreferenced() { delete this; }

    ULONG references() const { return references_; }

private:
    bool isThere(const Signature& member) const;
    std::optional<Fault> faultOf(std::string_view member) const;
    Variant serveWithFaults(std::size_t row, Arguments& arguments);
    HRESULT call(std::size_t row, WORD flags, DISPPARAMS& parameters, VARIANT* result,
                 EXCEPINFO* exception, UINT* wrongArgument);
    HRESULT carryOut(std::size_t row, bool isPut, Arguments& arguments, VARIANT* result,
                     EXCEPINFO* exception);

    Server& server_;
    std::string_view kind_;
    ULONG references_ = 1;
};

/// One member of an object class.
template <class Self>
struct Member
{
    Signature signature;
    Variant (*serve)(Self& self, Arguments& arguments);
    void (*put)(Self& self, Arguments& arguments) = nullptr;
    Type putType = Type::I4;
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
                                                               int most)
{
    std::pair<std::vector<int>, std::vector<std::string>> found;
    for (const auto& row : rows)
        if (row.id >= least && (most == 0 || row.id <= most)) {
            found.first.push_back(row.id);
            found.second.push_back(row.title);
        }
    return found;
}

/// Whether all numbers and all names in a table of members differ.
template <class Table>
constexpr bool hasOneOfEach(const Table& table)
{
    for (std::size_t i = 0; i < std::size(table); ++i)
        for (std::size_t j = 0; j < i; ++j)
            if (table[i].signature.number == table[j].signature.number ||
                table[i].signature.name == table[j].signature.name)
                return false;
    return true;
}

/// An object of the class Self, whose table is Self::members().
template <class Self>
class ObjectOf : public Object
{
public:
    using Object::Object;

protected:
    std::size_t memberCount() const override { return Self::members().size(); }
    const Signature& signature(std::size_t row) const override
    {
        return Self::members()[row].signature;
    }
    Variant serve(std::size_t row, Arguments& arguments) override
    {
        return Self::members()[row].serve(static_cast<Self&>(*this), arguments);
    }
    const Type* putType(std::size_t row) const override
    {
        const Member<Self>& member = Self::members()[row];
        return member.put == nullptr ? nullptr : &member.putType;
    }
    void put(std::size_t row, Arguments& arguments) override
    {
        Self::members()[row].put(static_cast<Self&>(*this), arguments);
    }
};

}  // namespace standin
