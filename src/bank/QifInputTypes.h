#pragma once
// The choices offered for QIF input. A choice's tag is a set of bits: 1 swaps description and
// memo, 4 reverses the signs of amounts.

#include <span>
#include <string_view>

namespace tavvel {

struct QifInputType {
    std::string_view title;
    int tag;
};

inline constexpr int kQifSwapDescriptionAndMemo = 1;
inline constexpr int kQifReverseSigns = 4;

inline constexpr QifInputType kQifInputTypes[] = {
    {"Normal", 0},
    {"Reverse Signs", kQifReverseSigns},
    {"Swap Description and Memo", kQifSwapDescriptionAndMemo},
    {"Swap and Reverse Signs", kQifSwapDescriptionAndMemo | kQifReverseSigns},
};

// The choices for OFX and QFX input: the second swaps description and memo.
inline constexpr std::string_view kQfxInputTypes[] = {"Normal", "Swap Description and Memo"};
inline constexpr int kQfxSwapIndex = 1;

// The tag of the choice at the pop-up index (the stored `inputQIFType`); 0 out of range.
constexpr int qifInputTypeTag(long long index) {
    if (index < 0 || index >= static_cast<long long>(std::size(kQifInputTypes)))
        return 0;
    return kQifInputTypes[index].tag;
}

} // namespace tavvel
