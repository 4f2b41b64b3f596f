#include "cli/SolveCommand.hpp"

#include <cctype>
#include <cmath>
#include <cstdlib>
#include <iostream>
#include <map>
#include <optional>
#include <set>
#include <string_view>

#include "core/clsPLL.hpp"
#include "platform/ErrorReport.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "platform/ListField.hpp"

namespace pendulon::cli {

const char* const kSolveUsage =
    "solve --ref MHZ --target MHZ --max-p N --max-q N [--min-p N] [--min-q N]\n"
    "            [--vco-min MHZ] [--vco-max MHZ] [--largest-vco] [--guard MHZ] [--cpll]";
const char* const kSolveSummary =
    "search P and Q of one loop (VCO = 2 x ref x P / Q) and print its data list";

std::optional<double> ParseNumber(std::string_view text) {
    size_t i = 0;
    if (i < text.size() && (text[i] == '+' || text[i] == '-'))
        ++i;
    size_t digits = 0;
    while (i < text.size() && std::isdigit(static_cast<unsigned char>(text[i]))) ++i, ++digits;
    if (i < text.size() && text[i] == '.') {
        ++i;
        while (i < text.size() && std::isdigit(static_cast<unsigned char>(text[i]))) ++i, ++digits;
    }
    if (digits == 0)
        return std::nullopt;
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        ++i;
        if (i < text.size() && (text[i] == '+' || text[i] == '-'))
            ++i;
        size_t exponentDigits = 0;
        while (i < text.size() && std::isdigit(static_cast<unsigned char>(text[i])))
            ++i, ++exponentDigits;
        if (exponentDigits == 0)
            return std::nullopt;
    }
    if (i != text.size())
        return std::nullopt;
    const std::string copy(text);
    char* end = nullptr;
    const double value = std::strtod(copy.c_str(), &end);
    if (end != copy.c_str() + copy.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

namespace {

constexpr const char* kTitle = "Pendulon(tm) 3.71";


int Usage(const std::string& problem) {
    std::cerr << "pendulon-cli solve: " << problem << "\n"
              << "usage: pendulon-cli " << kSolveUsage << "\n";
    return 2;
}

}  // namespace

int RunSolve(const std::vector<std::string>& args) {
    static const std::set<std::string> kValued = {"--ref",     "--target",  "--max-p",
                                                  "--max-q",   "--min-p",   "--min-q",
                                                  "--vco-min", "--vco-max", "--guard"};
    static const std::set<std::string> kFlags = {"--largest-vco", "--cpll"};
    if (args.size() == 1 && (args[0] == "--help" || args[0] == "-h")) {
        std::cout << "usage: pendulon-cli " << kSolveUsage << "\n";
        return 0;
    }
    std::map<std::string, double> values;
    std::set<std::string> flags;
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& option = args[i];
        if (kFlags.count(option) != 0) {
            if (!flags.insert(option).second)
                return Usage("option " + option + " given twice");
            continue;
        }
        if (kValued.count(option) == 0)
            return Usage("unknown argument '" + option + "'");
        if (values.count(option) != 0)
            return Usage("option " + option + " given twice");
        if (i + 1 >= args.size())
            return Usage("option " + option + " needs a value");
        const auto number = ParseNumber(args[i + 1]);
        if (!number)
            return Usage("'" + args[i + 1] + "' is not a number for " + option);
        values[option] = *number;
        ++i;
    }
    for (const char* required : {"--ref", "--target", "--max-p", "--max-q"})
        if (values.count(required) == 0)
            return Usage(std::string("missing ") + required);

    HeadlessPlatform platform;
    platform.OnMessage = [](const HeadlessPlatform::Message& message) {
        std::cerr << message.Title << "\n" << message.Text << "\n";
    };
    ErrorReport errors(platform, [] { return std::string(kTitle); });
    clsPLL pll(errors);
    pll.mdblReferenceFrequency = values["--ref"];
    pll.mdblTargetVCO = values["--target"];
    pll.mdblMaxP = values["--max-p"];
    pll.mdblMaxQ = values["--max-q"];
    // An option not given leaves the value a new solver has.
    if (values.count("--min-p") != 0)
        pll.mdblMinP = values["--min-p"];
    if (values.count("--min-q") != 0)
        pll.mdblMinQ = values["--min-q"];
    if (values.count("--vco-min") != 0)
        pll.mdblVCOMin = values["--vco-min"];
    if (values.count("--vco-max") != 0)
        pll.mdblVCOMax = values["--vco-max"];
    const double guard = values.count("--guard") != 0 ? values["--guard"] : 0.0;
    bool cpll = flags.count("--cpll") != 0;
    pll.FindPAndQ(flags.count("--largest-vco") != 0, guard, cpll);

    ListField list;
    pll.StorePLLData(list);
    for (const std::string& entry : list.Items()) std::cout << entry << "\n";
    std::cout.flush();
    return 0;
}

}  // namespace pendulon::cli
