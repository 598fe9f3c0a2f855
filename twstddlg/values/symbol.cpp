#include "values/symbol.h"

#include "values/named_array.h"

namespace {

const CString& NameOf(const CSymbol& symbol)
{
    return symbol.Name();
}

}  // namespace

CSymbol::CSymbol() : m_ziel(0) {}

CSymbol::CSymbol(const CSymbol& other) : CObject(), m_ziel(0)
{
    Set(other.m_name, other.m_adr, other.m_ziel);
}

CSymbol& CSymbol::operator=(const CSymbol& other)
{
    Set(other.m_name, other.m_adr, other.m_ziel);
    return *this;
}

CSymbol::~CSymbol() = default;

void CSymbol::SetAdr(const char* adr)
{
    m_adr = adr;
}

void CSymbol::SetName(const char* name)
{
    m_name = name;
}

void CSymbol::SetZiel(unsigned int ziel)
{
    m_ziel = ziel;
}

void CSymbol::Set(const char* name, const char* adr, unsigned int ziel)
{
    SetName(name);
    SetAdr(adr);
    SetZiel(ziel);
}

CSymbolArray::CSymbolArray() = default;

CSymbolArray::~CSymbolArray() = default;

INT_PTR CSymbolArray::FindName(const char* name) const
{
    return tw_values::FindByName(*this, name, NameOf);
}

LONGLONG CSymbolArray::GetZiel(const char* name) const
{
    const INT_PTR index = FindName(name);
    return index < 0 ? -1 : static_cast<LONGLONG>(GetAt(index).Ziel());
}

INT_PTR CSymbolArray::Add(CSymbol symbol)
{
    if (FindName(symbol.Name()) >= 0)
        return -1;
    return CArray::Add(symbol);
}

INT_PTR CSymbolArray::AddSorted(CSymbol symbol)
{
    return tw_values::InsertByName<CSymbol, CSymbol&>(*this, symbol, NameOf);
}

INT_PTR CSymbolArray::Replace(CSymbol symbol)
{
    const INT_PTR index = FindName(symbol.Name());
    if (index < 0)
        return CArray::Add(symbol);
    RemoveAt(index);
    InsertAt(index, symbol);
    return index;
}
