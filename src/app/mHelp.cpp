#include "app/mHelp.hpp"

#include "app/AppServices.hpp"
#include "app/Configurator.hpp"
#include "app/MainFace.hpp"

namespace pendulon::mHelp {

namespace {

bool IsVariantOf(const std::string& device, const std::string& base) {
    return device == base + "I" || device == base + "F";
}

}  // namespace

std::string HintText(int topic, const std::string& device, const std::string& a,
                     const std::string& b, const std::string& c, const std::string& d) {
    switch (topic) {
        case 1:
            if (device == "QX3350" || device == "QX3350I") {
                return "Reference Range: " + a + "-" + b + "MHz for crystal; " + c + "-" + d +
                       "MHz for external.";
            }
            return "Reference Range: 10-25MHz for crystal, 1-30MHz for external clock.";
        case 2:
            return "Notice CLKD only: option Ref/8 is replaced with Ref/3.";
        case 4:
            return "Any CPU selection can be turned off if it is not needed.";
        case 5:
            return "Note: Suspending a PLL automatically suspends its outputs.";
        case 6:
            return a + " Range: " + b + "-" + c + "MHz" + " at current voltage.";
        case 11:
            return "Clock Range: " + a + "-" + b + "MHz at current voltage.";
        case 13:
            return "Maximum PPM allowed for outputs to be sourced from Reference or from the same "
                   "PLL.";
        case 17:
            return "Try to optimize the outputs by clicking the Calculate button repeatedly.";
        case 19:
            return "Minimum PLL frequency is " + a + "MHz; minimum P is 1; minimum Q is 1.";
        case 20:
            return "There are no maximums to PLL frequency, P or Q.";
        case 21:
            return "Check to suspend Clock " + a;
        default:
            return "";
    }
}

std::string DeviceHintText(int topic, const std::string& device) {
    switch (topic) {
        case 1:
        case 4:
        case 5:
        case 13:
            return HintText(topic, device);
        case 2:
            return "Notice CLKD only: option Ref/8 is replaced with Ref/3";
        case 6:
            if (device == "QX4860" || device == "QX6105A")
                return "PLL Range: 4-200MHz at 5V, 4-150MHz at 3.3V";
            if (IsVariantOf(device, "QX4860") || IsVariantOf(device, "QX6105A"))
                return "PLL Range: 4-160MHz at 5V, 4-120MHz at 3.3V";
            return "";
        case 7:
        case 8:
        case 9: {
            const char* loop = topic == 7 ? "CPLL" : topic == 8 ? "UPLL" : "SPLL";
            if (device == "QX7311" || device == "QX7312")
                return std::string(loop) + " Range: 8-100MHz at 5V, 8-80MHz at 3.3V";
            if (IsVariantOf(device, "QX7311") || IsVariantOf(device, "QX7312"))
                return std::string(loop) + " Range: 8-90MHz at 5V, 8-66.66667MHz at 3.3V";
            return "";
        }
        case 10:
            return "Smooth slew: frequency changes smoothly and monotonically.";
        case 11:
            return "CLK Range: 0.5-100MHz at 5V, 0.5-80MHz at 3.3V";
        case 12:
            if (device == "QX6105A" || device == "QX4860")
                return "Output Range: 0.5-130MHz at 5V, 0.5-100MHz at 3.3V";
            if (device == "QX6105AF" || device == "QX6105AI" || device == "QX7311" ||
                device == "QX7312" || device == "QX4860I" || device == "QX4860F")
                return "Output Range: 0.5-100MHz at 5V, 0.5-80MHz at 3.3V";
            if (IsVariantOf(device, "QX7311") || IsVariantOf(device, "QX7312"))
                return "Output Range: 0.5-90MHz at 5V, 0.5-66.6MHz at 3.3V";
            return "";
        case 17:
            if (device == "QX5140")
                return "Try optimizing the outputs by clicking the Calculate button repeatedly.";
            return "";
        default:
            return "";
    }
}

void ShowHint(int topic, Configurator& form, const std::string& a, const std::string& b,
              const std::string& c, const std::string& d) {
    form.App().Main().ShowHelp(HintText(topic, form.Device(), a, b, c, d));
}

void ShowDeviceHint(int topic, Configurator& form) {
    form.App().Main().ShowHelp(DeviceHintText(topic, form.Device()));
}

}  // namespace pendulon::mHelp
