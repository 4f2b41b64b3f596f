#pragma once
#include <string>

namespace pendulon {

class Configurator;

// The hint lines of the configurators. A field that takes the focus shows its topic; leaving
// it shows topic 0, which clears the line.
namespace mHelp {

// The hint text of a topic; a, b, c, d are the values the topic's text is built around.
std::string HintText(int topic, const std::string& device, const std::string& a = "",
                     const std::string& b = "", const std::string& c = "",
                     const std::string& d = "");
// The hint text of a topic whose ranges are fixed by the device.
std::string DeviceHintText(int topic, const std::string& device);

// Pass the texts above to the main window's hint line.
void ShowHint(int topic, Configurator& form, const std::string& a = "", const std::string& b = "",
              const std::string& c = "", const std::string& d = "");
void ShowDeviceHint(int topic, Configurator& form);

}  // namespace mHelp
}  // namespace pendulon
