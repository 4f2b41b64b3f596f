#pragma once
#include <string>

namespace pendulon {

class clsEntryFile;

namespace mShared {

// The family checksum of a read entry file for a device, as text; "n/a" for a device whose
// family has none.
std::string CalculateChecksum(clsEntryFile& entry, const std::string& device);

}  // namespace mShared
}  // namespace pendulon
