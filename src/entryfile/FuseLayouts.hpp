#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace pendulon {

class clsEntryFile;

// One field of a fuse map, in the order its fuses stand in the row. The layouts below are the one
// description of where each value of an entry image goes in an EPROM vector and how many fuses it
// has: the vector writers build their rows from them and check every value against them, and a
// reader of vectors can take a value back out by the same table.
struct FuseField {
    enum class Kind {
        Digit,     // a value of 0 or 1, written as its decimal digit: one fuse
        Bits,      // a binary number of Width fuses, most significant first
        Constant,  // fuses that stand as they are (Text)
    };
    // Where the value comes from: the image's "# i" values, or the identity row of the QX7311
    // family's layout.
    enum class From { Image, Checksum, Major, Minor, Build, Day, Month, Year, DeviceNumber, None };

    Kind Type = Kind::Constant;
    From Source = From::None;
    std::string Name;  // how a message names the field: "CPU3 P", "UPLL Q", "row address"
    int Index = -1;       // i(Index) of the image, for From::Image
    int Width = 0;        // number of fuses
    int Offset = 0;       // the value is stored less this
    // With a partner, a value of 3 in both fields is a switched-off loop, stored as it is,
    // without the offsets.
    int OffPairIndex = -1;
    std::string Text;  // the fuses of a Constant
};

// The fields of each row of a fuse map, row by row.
using FuseLayout = std::vector<std::vector<FuseField>>;

// 17 rows of 52 fuses: a row per selection, then the configuration.
const FuseLayout& FuseLayout4860();
// Eight selection rows of 22 fuses, the configuration and the identity, 80 fuses each.
const FuseLayout& FuseLayout7311();
// One row of 45 fuses.
const FuseLayout& FuseLayout3350();

// The values of a vector that do not come from the image (the QX7311 family's identity row).
struct FuseIdentity {
    long Checksum = 0;
    long Major = 0;
    long Minor = 0;
    long Build = 0;
    long Day = 0;
    long Month = 0;
    long Year = 0;
    long DeviceNumber = 0;
};

// A value that its field cannot hold, and what the field takes.
struct FuseMisfit {
    std::string Name;
    int Index = -1;  // i(Index), or -1 for a value of the identity row
    long Value = 0;
    long Minimum = 0;
    long Maximum = 0;
};

struct FuseMap {
    std::vector<std::string> Rows;     // the fuses of each row, "0" and "1"
    std::vector<FuseMisfit> Misfits;  // empty when every value fits its field
};

// The fuses of an image by a layout. A value that does not fit its field is listed in Misfits
// and its fuses are left "0", so that no row is ever longer or shorter than its layout says.
FuseMap BuildFuseMap(const FuseLayout& layout, const clsEntryFile& image,
                     const FuseIdentity& identity = {});

// The number of fuses of a layout, all rows together.
int FuseCount(const FuseLayout& layout);

// What a row of fuses gives back: the value of every image field (offsets undone) and the
// identity values. A pair of loop counters whose fuses hold 3 and 3 may be a switched-off loop
// (stored as it is) or a loop at P 6, Q 5: the values give the second reading, and offPairs the
// first counter of each such pair, for the caller to decide.
struct FuseRowValues {
    struct Value {
        int Index = 0;
        long Value = 0;
    };
    std::vector<Value> Values;
    FuseIdentity Identity;
    std::vector<int> OffPairs;
};

// Reads one row of a layout from fuses (only '0' and '1'), starting at position, and moves
// position behind it. False, with the cause, when the fuses end inside the row or break one of
// its constants; position then stands where it was.
bool ReadFuseRow(const std::vector<FuseField>& row, std::string_view fuses, size_t& position,
                 FuseRowValues& values, std::string& cause);

// The message for values that do not fit: each field by name, index and value with the range it
// takes; past the first few, how many more there are.
std::string DescribeMisfits(const std::vector<FuseMisfit>& misfits);

}  // namespace pendulon
