#pragma once
#include <array>
#include <memory>
#include <string>

namespace pendulon {

class Application;
class Configurator;

// The device table: which document window serves which device name.
bool IsDeviceInTable(const std::string& device);
// The device names of the table, in the order of the device selection.
const std::array<const char*, 15>& TableDevices();
// An unloaded window for the device, or nullptr when the device has none (unknown, or its
// window is not part of this build). Application::ConfiguratorFactory, when set, decides.
std::unique_ptr<Configurator> CreateConfigurator(Application& app, const std::string& device);

}  // namespace pendulon
