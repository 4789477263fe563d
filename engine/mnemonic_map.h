// mnemonic_map.h - finds an instruction by its mnemonic: a hash table with
// separate chaining. Keys are compared exactly, case included.

#ifndef ENGINE_MNEMONIC_MAP_H
#define ENGINE_MNEMONIC_MAP_H

#include "toolkit/message_box.h"

struct cInstruction;

class cMnemonicMap
{
public:
    // nBuckets above 0. The chain heads are allocated at the first insert.
    // pBoxes asks whether to try again when memory is short; after Cancel Slot() throws
    // std::bad_alloc.
    cMnemonicMap(unsigned nBuckets, cMessageBoxes *pBoxes);
    ~cMnemonicMap();
    cMnemonicMap(const cMnemonicMap &)            = delete;
    cMnemonicMap &operator=(const cMnemonicMap &) = delete;

    // The value of szKey, inserted at the end of its chain as null if it is
    // not there. szKey is not copied and must outlive the map.
    const cInstruction *&Slot(const char *szKey);

    int Contains(const char *szKey) const;

    // The value of szKey, null if it is not there.
    const cInstruction *Find(const char *szKey) const;

    // Sum of the key's bytes, each taken as signed, modulo nBuckets.
    static unsigned Hash(const char *szKey, unsigned nBuckets);

private:
    struct cNode
    {
        cNode              *m_pNext;
        const char         *m_szKey;
        const cInstruction *m_pValue;
    };

    const cNode                    *FindNode(const char *szKey) const;
    template <class cAllocate> auto MustAllocate(cAllocate Allocate);

    unsigned       m_nBuckets;
    cMessageBoxes *m_pBoxes;
    cNode        **m_ppHeads;
};

#endif
