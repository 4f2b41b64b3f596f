#pragma once
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "entryfile/FuseLayouts.hpp"

namespace pendulon {

class ErrorReport;
class clsEntryFile;
struct ReadBack;

// A fuse map read back: the JEDEC file as the vector writers write it and as device programmers
// save it, checked and taken apart into the "# i" values of an entry image by the same layout
// descriptions the writers use. The read-back of one of the devices that fit the map (its loops
// and outputs at a reference) and the entry image that opens it in the device's window come from
// the decoded values and the device's own models.
class clsFuseMap {
  public:
    explicit clsFuseMap(ErrorReport& errors);
    ~clsFuseMap();
    clsFuseMap(const clsFuseMap&) = delete;
    clsFuseMap& operator=(const clsFuseMap&) = delete;

    // Reads a fuse map from its text. False, with the cause, for a file that is not a fuse map,
    // is cut, fails a checksum, or does not follow a layout of the program; what was read
    // before stays as it was.
    bool ParseFuseMap(std::string_view text, std::string& cause);
    // Reads the file's bytes, then parses them.
    bool ReadFuseMap(const std::string& path, std::string& cause);
    bool Loaded() const { return image_ != nullptr; }

    // The fuses, first fuse first, and the C field as written.
    const std::string& Fuses() const { return fuses_; }
    const std::string& FuseChecksum() const { return fuseChecksum_; }
    // The transmission checksum behind ETX: none, the "0000" that means not computed, or one
    // that was computed and checked.
    enum class Transmission { Absent, NotComputed, Verified };
    Transmission TransmissionChecksum() const { return transmission_; }
    const std::string& TransmissionText() const { return transmissionText_; }
    // The pin count of the QP field, 0 when the file has none (or QP0).
    int PinCount() const { return pinCount_; }

    // The layout's family: "QX4860", "QX6105A", "QX7311" (QX7311, QX7312 and QX5140) or
    // "QX3350".
    const std::string& Family() const { return family_; }
    // The device names the map fits, and the one taken when the user names none.
    const std::vector<std::string>& Devices() const { return devices_; }
    const std::string& DefaultDevice() const { return defaultDevice_; }
    bool Fits(const std::string& device) const;
    // The decoded "# i" values.
    const clsEntryFile& Image() const { return *image_; }
    // The QX7311 layout's identity row, and the family checksum it stores against the one of
    // the decoded fields.
    bool HasIdentity() const { return family_ == "QX7311"; }
    const FuseIdentity& Identity() const { return identity_; }
    bool FamilyChecksumOK() const;
    // The family checksum of the decoded fields as the summary shows it ("n/a" for the QX3350).
    std::string FamilyChecksum(const std::string& device) const;

    // What the chip makes as device at reference (MHz): its loops and outputs, computed by the
    // device's models, and the decoded fields with their names.
    ReadBack MakeReadBack(const std::string& device, double reference) const;
    // The entry image of the chip as device: the decoded "# i" values, the frequencies the chip
    // makes at reference as its "# f" values, and the single values of the device's files.
    std::unique_ptr<clsEntryFile> MakeEntryImage(const std::string& device, double reference,
                                                 const std::string& revision) const;
    // The text of that image as the device's entry file, below header (the common block).
    std::string EntryFileText(const std::string& device, double reference,
                              const std::string& revision, const std::string& header,
                              bool details) const;
    // A QX7311-layout image as the QX5140 window holds it: a CPU block that is off has P 0 and
    // Q 0, which its fields cannot hold, so that the fuses keep zeros there.
    static void ClearOffCPUBlocks(clsEntryFile& image);
    // The name of "# i" field n of the family, as the entry file's detailed comments give it.
    std::string FieldName(int n) const;

  private:
    bool DecodeLayout(const std::string& fuses, int pinCount, std::string& cause);

    ErrorReport& errors_;
    std::string fuses_;
    std::string fuseChecksum_;
    Transmission transmission_ = Transmission::Absent;
    std::string transmissionText_;
    int pinCount_ = 0;
    std::string family_;
    std::vector<std::string> devices_;
    std::string defaultDevice_;
    std::unique_ptr<clsEntryFile> image_;
    FuseIdentity identity_;
};

}  // namespace pendulon
