#include "cli/DecodeCommand.hpp"

#include <iostream>
#include <nlohmann/json.hpp>
#include <optional>

#include "cli/DocumentSession.hpp"
#include "cli/SolveCommand.hpp"
#include "core/mShared.hpp"
#include "platform/TextFile.hpp"
#include "reports/mReadBackPrintout.hpp"
#include "shell/frmReadBack.hpp"

namespace pendulon::cli {

const char* const kDecodeUsage =
    "decode FILE.jed [--ref MHZ] [--device NAME] [--json] [--save-ent PATH]\n"
    "      read a fuse map back: the device it programs, its loops and what each output\n"
    "      makes from the reference (default 14.31818 MHz); --device picks among the names\n"
    "      the map fits (default its base name); --json prints {\"device\", \"fuse_checksum\",\n"
    "      \"checksum_ok\", \"fields\", \"loops\", \"outputs\", ...}; --save-ent writes the entry\n"
    "      file that opens it in the device's window. A file that is not a fuse map, is cut,\n"
    "      fails a checksum or follows no layout is refused: exit status 1, nothing written";
const char* const kDecodeSummary =
    "read a fuse map (*.jed) back: device, checksums, loops, output frequencies";

namespace {

int Usage(const std::string& problem) {
    std::cerr << "pendulon-cli: decode: " << problem << "\n"
              << "usage: pendulon-cli decode FILE.jed [--ref MHZ] [--device NAME] [--json] "
                 "[--save-ent PATH]\n";
    return 2;
}

nlohmann::json Number(double value, bool off) {
    return off ? nlohmann::json(nullptr) : nlohmann::json(value);
}

nlohmann::json ToJson(const ReadBack& rb) {
    nlohmann::json fields = nlohmann::json::array();
    for (const ReadBack::Field& field : rb.Fields)
        fields.push_back({{"index", field.Index}, {"name", field.Name}, {"value", field.Value}});
    nlohmann::json loops = nlohmann::json::array();
    for (const ReadBack::Loop& loop : rb.Loops) {
        nlohmann::json entry = {
            {"name", loop.Name}, {"p", loop.P}, {"q", loop.Q}, {"vco", Number(loop.VCO, loop.Off)}};
        if (!loop.Note.empty())
            entry["note"] = loop.Note;
        loops.push_back(entry);
    }
    nlohmann::json outputs = nlohmann::json::array();
    for (const ReadBack::Output& output : rb.Outputs) {
        nlohmann::json entry = {{"pin", output.Pin},
                                {"source", output.Source},
                                {"divider", output.Divider},
                                {"frequency", Number(output.Frequency, output.Off)}};
        if (!output.State.empty())
            entry["state"] = output.State;
        if (!output.Shown)
            entry["shown_by_window"] = false;
        outputs.push_back(entry);
    }
    nlohmann::json family = {{"computed", rb.FamilyChecksum}};
    if (!rb.StoredFamilyChecksum.empty())
        family["stored"] = rb.StoredFamilyChecksum;
    nlohmann::json json = {{"file", rb.File},
                           {"device", rb.Device},
                           {"devices", rb.Devices},
                           {"reference", rb.Reference},
                           {"fuse_checksum", rb.FuseChecksum},
                           {"checksum_ok", rb.ChecksumOK},
                           {"transmission_checksum", rb.Transmission},
                           {"family_checksum", family},
                           {"fields", fields},
                           {"loops", loops},
                           {"outputs", outputs},
                           {"notes", rb.Notes}};
    if (!rb.Written.empty())
        json["written"] = rb.Written;
    return json;
}

}  // namespace

int RunDecode(const std::vector<std::string>& args) {
    if (args.empty() || args[0].rfind("--", 0) == 0)
        return Usage("decode needs a fuse map");
    const std::string path = args[0];
    std::optional<double> reference;
    std::string device;
    std::string saveEnt;
    bool json = false;
    for (size_t i = 1; i < args.size(); ++i) {
        const std::string& option = args[i];
        if (option == "--json") {
            json = true;
            continue;
        }
        if (option != "--ref" && option != "--device" && option != "--save-ent")
            return Usage("unknown option '" + option + "'");
        if (i + 1 >= args.size())
            return Usage(option + " needs an argument");
        const std::string& value = args[++i];
        if (option == "--ref") {
            reference = ParseNumber(value);
            if (!reference || !(*reference > 0) || *reference > 1000)
                return Usage("--ref takes a frequency in MHz above 0 and up to 1000, not '" +
                             value + "'");
        } else if (option == "--device") {
            device = value;
        } else {
            saveEnt = value;
        }
    }

    DocumentSession session(std::cout, std::cerr);
    frmReadBack form(session.App());
    std::string cause;
    if (!form.ReadFuseMap(path, cause)) {
        std::cerr << "pendulon-cli: decode: " << path << ": " << cause << "\n";
        return 1;
    }
    if (!device.empty() && !form.SelectDevice(device)) {
        std::string fits;
        for (const std::string& name : form.FuseMap().Devices())
            fits += (fits.empty() ? "" : ", ") + name;
        std::cerr << "pendulon-cli: decode: " << path << ": the fuse map does not fit the device '"
                  << device << "' (it fits " << fits << ")\n";
        return 1;
    }
    if (reference) {
        form.cboFRef.SetText(mShared::FormatFrequencyFixed(*reference) + " MHz");
        if (!form.ApplyReference())
            return 1;
    }
    const ReadBack readBack = form.MakeReadBack();
    if (!saveEnt.empty()) {
        const std::string failure = WriteTextFileAtomically(saveEnt, form.EntryFileText());
        if (!failure.empty()) {
            std::cerr << "pendulon-cli: decode: " << saveEnt << " was not written: " << failure
                      << "\n";
            return 1;
        }
    }
    if (json) {
        std::cout << ToJson(readBack).dump(2) << "\n";
    } else {
        std::string text = mReadBackPrintout::GetReadBackDocument(readBack);
        std::string plain;
        for (char c : text)
            if (c != '\r')
                plain += c;
        std::cout << plain;
    }
    return 0;
}

}  // namespace pendulon::cli
