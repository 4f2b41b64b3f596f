#pragma once
#include <string>

namespace pendulon {

// The settings of one common dialog (open, save, printer, help), as the product keeps them
// between uses. The platform shows it; a cancel leaves FileName as it was.
struct CommonDialog {
    std::string DialogTitle;
    std::string Filter;  // "Entry Files (*.ent)|*.ent|All Files (*.*)|*.*"
    int FilterIndex = 1;
    long Flags = 0;
    std::string FileName;
    std::string DefaultExt;
    // The folder the dialog starts in when FileName names none; empty: the platform's choice
    // (the folder of the last dialog, else the user's home).
    std::string InitDir;
    bool CancelError = false;
    std::string HelpFile;
    int HelpCommand = 0;

    // Flag bits the product uses.
    static constexpr long ReadOnly = 0x1;
    static constexpr long OverwritePrompt = 0x2;
    static constexpr long HideReadOnly = 0x4;
    static constexpr long PathMustExist = 0x800;
    static constexpr long FileMustExist = 0x1000;
    static constexpr long Explorer = 0x80000;
    static constexpr long LongNames = 0x200000;
    // The value the shell sets for entry files: explorer style, long names, the file and its
    // folder must exist, prompt before overwriting, no read-only box.
    static constexpr long EntryFileFlags = 2627590;
};

// Error number of a cancelled common dialog with CancelError set.
inline constexpr long kCancelErrorNumber = 32755;

}  // namespace pendulon
