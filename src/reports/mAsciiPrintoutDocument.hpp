#pragma once
#include <functional>
#include <string>

#include "reports/TableLayout.hpp"

namespace pendulon {

class AppServices;
class Configurator;
class ErrorReport;
class Window;

// The ASCII configuration document: banner, common block, part number, the chip in characters,
// operating conditions, options, the table of outputs and the checksum. Every line ends in
// CR LF. The configurator is read through its fields by name, as the entry files read it, so
// these routines take the window and its device name.
namespace mAsciiPrintout {

inline constexpr const char* kLineEnd = "\r\n";
inline const std::string kEol = kLineEnd;

// The parts of the document that come from outside the configurator's own fields.
struct DocumentSources {
    std::string SummaryInfo;  // the four lines of the configuration's identity
    std::string Revision;     // revision text of the summary
    std::string Checksum;     // caption of the summary's checksum label
    std::string Title;        // application title
    std::string Build;        // build text
    // The configurator's pin table: element 0 the pin count as text, then the pin texts.
    std::function<std::string(int)> PinName;
};

// Banner art, the rule under it, an empty line and the summary block.
std::string GetHeader(const std::string& summaryInfo);
// The same with the summary block of the running program.
std::string GetHeader(AppServices& app);

// The ordering code of the device at its voltage, with "-" and the revision when there is one.
// Empty for a device outside the known families.
std::string GetPartNumber(const Window& form, const std::string& device,
                          const std::string& revision);

// "5.0V" with opt5V on, else "3.3V".
std::string GetVoltageText(const Window& form);

// The option lines of the device's family, each with its line end.
std::string GetOptions(const Window& form, const std::string& device);

// Cell content of the output tables.
TableLayout MakeTableLayout6105A(const Window& form);
TableLayout MakeTableLayout4860(const Window& form);
TableLayout MakeTableLayout5140(const Window& form);
TableLayout MakeTableLayout3350(const Window& form);

// A filled table laid out by clsTable.
std::string MakeTable(const TableLayout& layout, ErrorReport& errors);
std::string MakeTable6105A(const Window& form, ErrorReport& errors);
std::string MakeTable4860(const Window& form, ErrorReport& errors);
std::string MakeTable5140(const Window& form, ErrorReport& errors);

// The two tables of the QX7311 family: the CPLL selections beside the output clocks, then the
// output frequencies at each selection. The QX7312 models have no 32k output.
void Make731xTable(const Window& form, const std::string& device, TableLayout& first,
                   TableLayout& second);
// The first table, a line end and the second.
std::string MakeTable731x(const Window& form, const std::string& device, ErrorReport& errors);
std::string MakeTable3350(const Window& form, ErrorReport& errors);

// The table of outputs for the device; a device whose table is not known raises 10301.
std::string MakeOutputTable(const Window& form, const std::string& device, ErrorReport& errors);

// The whole document.
std::string GetASCIIDocument(const Window& form, const std::string& device,
                             const DocumentSources& sources, ErrorReport& errors);
// The document of a configurator of the running program: its summary, checksum and title.
std::string GetASCIIDocument(Configurator& form);
std::string GetOptions(const Configurator& form);
std::string MakeOutputTable(Configurator& form);

}  // namespace mAsciiPrintout
}  // namespace pendulon
