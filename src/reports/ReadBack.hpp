#pragma once
#include <string>
#include <vector>

namespace pendulon {

// What a programmed chip makes from its reference, as read back from its fuse map: the file's
// checks, each loop's counters and VCO, each output's source and frequency, and every decoded
// fuse field. The entry-file subsystem fills it; the read-back document prints it.
struct ReadBack {
    struct Loop {
        std::string Name;  // "CPLL[3]", "SPLL", "PLL 0101"
        int P = 0;
        int Q = 0;
        double VCO = 0;    // MHz, as the loop's data list shows it; 0 when off
        bool Off = false;  // switched off, or counters that mark a loop without solution
        std::string Note;  // such as "prescale /2"
    };
    struct Output {
        std::string Pin;       // "CLKA", "CPU", "REFCLK"
        std::string State;     // the select state it belongs to, or empty
        std::string Source;    // the source and divisor text, such as "SPLL/12" or "Off"
        int Divider = 1;       // the divider the output applies to its source
        double Frequency = 0;  // MHz, as the device's window shows it; 0 when off
        bool Off = false;
        bool Shown = true;  // false where the window shows the source's name, not a number
    };
    struct Field {
        int Index = 0;
        std::string Name;
        int Value = 0;
    };

    std::string File;
    std::string Device;
    std::vector<std::string> Devices;  // every device name the map fits
    std::string FuseChecksum;          // the C field, verified
    std::string Transmission;          // what became of the transmission checksum
    bool ChecksumOK = true;            // every checksum the file carries agrees
    std::string FamilyChecksum;        // of the decoded fields, as the summary shows it
    std::string StoredFamilyChecksum;  // what the layout stores, where it stores one
    std::string Written;               // who wrote the map and when, where the layout says
    double Reference = 0;              // MHz
    std::vector<Loop> Loops;
    std::vector<Output> Outputs;
    std::vector<Field> Fields;
    std::vector<std::string> Notes;  // what the reader of the report should know
};

}  // namespace pendulon
