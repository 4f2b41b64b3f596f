#pragma once
#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace pendulon {

class clsEntryFile;

// One field of a row of fuses. The vector writers build their rows from these descriptions and
// the fuse map reader takes the same descriptions apart, so the two directions cannot drift.
struct FuseField {
    enum class Kind {
        // The decimal text of i(index): one fuse for the values 0 and 1 it holds.
        Digit,
        // i(index) - offset, most significant bit first, in width fuses.
        Binary,
        // A loop counter: as Binary, except that a switched-off loop (i(index) and i(pair) both
        // 3) goes in as it is, without the offsets.
        Counter,
        // Fuses that are the same in every map of the layout: zeros, address nibbles, valid bits.
        Fixed,
        // A field of the identity row, which holds no image value (see FuseIdentity).
        Identity,
    };
    Kind kind = Kind::Fixed;
    int index = 0;  // image index, or the FuseIdentity element for Identity
    int width = 1;
    int offset = 0;
    int pair = -1;          // the other counter of the loop, for Counter
    std::string fixed;      // the fuses of a Fixed field
    const char* what = "";  // what a Fixed field is, for the reader's messages
};

using FuseRow = std::vector<FuseField>;

// The identity row of the QX7311 layout: the family checksum the window showed, the program's
// version and the date the vector was made, and the device number.
struct FuseIdentity {
    enum Element { Checksum, Major, Minor, Build, Day, Month, Year, DeviceNumber, Count };
    std::array<int, Count> values{};
};

// The rows of a family's fuse map and the number of fuses they hold together.
struct FuseLayout {
    std::vector<FuseRow> rows;
    int fuseCount = 0;
};

// The 17 rows of 52 fuses of the QX4860 family and the QX6105A family: sixteen selection rows,
// each with its address and valid bit, then the configuration row.
const FuseLayout& FuseLayout4860();
// The ten rows of the QX7311 family and the QX5140: eight CPU selection rows of 22 fuses, the
// configuration row and the identity row of 80 fuses each.
const FuseLayout& FuseLayout7311();
// The one row of 45 fuses of the QX3350.
const FuseLayout& FuseLayout3350();

// The fuses of one row for an image. A value wider than its field is not cut (what follows
// shifts), and a negative value is written as the writers always wrote it.
std::string WriteFuseRow(const FuseRow& row, const clsEntryFile& image,
                         const FuseIdentity* identity = nullptr);

// What a row of fuses gives back: the value of every image field (offsets undone) and the
// identity elements. A counter pair that reads back as 3 and 3 may be a switched-off loop or a
// loop at P = 6, Q = 5: both readings are kept for the caller to decide.
struct FuseRowValues {
    struct Value {
        int index = 0;
        int value = 0;
    };
    std::vector<Value> values;
    FuseIdentity identity;
    // Image indices of counter pairs whose raw fuses are 3 and 3 (the first counter of each).
    std::vector<int> offPairs;
};

// Reads one row from fuses (only '0' and '1'), starting at position. False, with the cause,
// when the fuses break a Fixed field of the layout; position then stands where it was.
bool ReadFuseRow(const FuseRow& row, std::string_view fuses, size_t& position,
                 FuseRowValues& values, std::string& cause);

}  // namespace pendulon
