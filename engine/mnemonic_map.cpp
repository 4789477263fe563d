#include "engine/mnemonic_map.h"

#include <cstdint>
#include <cstring>
#include <new>

#include "toolkit/retry_alloc.h"

cMnemonicMap::cMnemonicMap(unsigned nBuckets, cMessageBoxes *pBoxes)
    : m_nBuckets(nBuckets), m_pBoxes(pBoxes), m_ppHeads(nullptr)
{
}

cMnemonicMap::~cMnemonicMap()
{
    if (!m_ppHeads)
        return;
    for (unsigned i = 0; i < m_nBuckets; i++)
        while (cNode *const pNode = m_ppHeads[i])
        {
            m_ppHeads[i] = pNode->m_pNext;
            delete pNode;
        }
    delete[] m_ppHeads;
}

unsigned cMnemonicMap::Hash(const char *szKey, unsigned nBuckets)
{
    uint32_t nSum = 0;
    for (; *szKey; szKey++)
        nSum += static_cast<uint32_t>(static_cast<int8_t>(*szKey));
    return nSum % nBuckets;
}

template <class cAllocate> auto cMnemonicMap::MustAllocate(cAllocate Allocate)
{
    const auto pMemory = AllocateWithRetry(m_pBoxes, Allocate);
    if (!pMemory)
        throw std::bad_alloc();
    return pMemory;
}

const cMnemonicMap::cNode *cMnemonicMap::FindNode(const char *szKey) const
{
    if (!m_ppHeads)
        return nullptr;
    const cNode *pNode = m_ppHeads[Hash(szKey, m_nBuckets)];
    while (pNode && strcmp(pNode->m_szKey, szKey) != 0)
        pNode = pNode->m_pNext;
    return pNode;
}

const cInstruction *&cMnemonicMap::Slot(const char *szKey)
{
    if (!m_ppHeads)
        m_ppHeads = MustAllocate([this] { return new (std::nothrow) cNode *[m_nBuckets](); });
    cNode **ppNode = &m_ppHeads[Hash(szKey, m_nBuckets)];
    while (*ppNode && strcmp((*ppNode)->m_szKey, szKey) != 0)
        ppNode = &(*ppNode)->m_pNext;
    if (!*ppNode)
        *ppNode = MustAllocate([szKey] {
            return new (std::nothrow) cNode{nullptr, szKey, nullptr};
        });
    return (*ppNode)->m_pValue;
}

int cMnemonicMap::Contains(const char *szKey) const
{
    return FindNode(szKey) != nullptr;
}

const cInstruction *cMnemonicMap::Find(const char *szKey) const
{
    const cNode *const pNode = FindNode(szKey);
    return pNode ? pNode->m_pValue : nullptr;
}
