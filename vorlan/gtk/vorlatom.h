// The atom table behind AddAtom, FindAtom, GetAtomName and DeleteAtom.
//
// One table serves both the local and the global calls; nothing is shared
// between processes.  Atoms 1 to 0xBFFF are integer atoms: they stand for
// their own value and are never stored.  String atoms are numbered from
// 0xC000 upward and a number is never given out twice.  Names compare with
// the ASCII letters folded only and keep the case of their first addition.
#ifndef VORLAN_GTK_VORLATOM_H
#define VORLAN_GTK_VORLATOM_H

#include <windows.h>

namespace vorlan {

// Highest integer atom and first string atom.
constexpr ATOM kMaxIntegerAtom = 0xBFFF;
constexpr ATOM kFirstStringAtom = 0xC000;

// Names of this many units or more are refused by AddAtom.
constexpr int kMaxAtomNameLength = 128;

// What a name argument stands for, before any table access.
enum class AtomNameKind {
    Invalid,  // refused: error 87
    Integer,  // an integer atom, in `value`
    String,   // a name to look up in the table
};

struct AtomName {
    AtomNameKind kind;
    ATOM value;
};

// Classifies a wide name argument.  An argument whose high bits are zero is
// an integer atom in its low word; "#" followed by decimal digits names an
// integer atom too.  `limitLength` refuses names of kMaxAtomNameLength units
// and more (AddAtom does, FindAtom does not).
AtomName ClassifyAtomName(LPCWSTR name, bool limitLength);

// Classifies the integer form of a narrow name argument; a real string
// gives AtomNameKind::String with no further check.
AtomName ClassifyNarrowAtomPointer(LPCSTR name);

} // namespace vorlan

#endif // VORLAN_GTK_VORLATOM_H
