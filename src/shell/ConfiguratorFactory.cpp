#include "shell/ConfiguratorFactory.hpp"

#include <array>

#include "app/Configurator.hpp"
#include "configurators/frmQX3350.hpp"
#include "configurators/frmQX4860.hpp"
#include "configurators/frmQX6105A.hpp"
#include "configurators/frmQX7311.hpp"
#include "configurators/frmQX5140.hpp"
#include "shell/Application.hpp"

namespace pendulon {

namespace {
constexpr std::array<const char*, 15> kTableDevices = {
    "QX6105A", "QX6105AF", "QX6105AI", "QX7311",  "QX7311F", "QX7311I", "QX7312", "QX7312F",
    "QX7312I", "QX4860",   "QX4860F",  "QX4860I", "QX5140",  "QX3350",  "QX3350I"};
}  // namespace

const std::array<const char*, 15>& TableDevices() {
    return kTableDevices;
}

bool IsDeviceInTable(const std::string& device) {
    for (const char* name : kTableDevices)
        if (device == name)
            return true;
    return false;
}

std::unique_ptr<Configurator> CreateConfigurator(Application& app, const std::string& device) {
    if (app.ConfiguratorFactory)
        return app.ConfiguratorFactory(app, device);
    if (!IsDeviceInTable(device))
        return nullptr;
    // The device windows join the table here as they are built: frmQX6105A for the QX6105A
    // family, frmQX7311 for the QX7311 and QX7312 families, frmQX4860, frmQX5140, frmQX3350.
    if (device == "QX6105A" || device == "QX6105AF" || device == "QX6105AI")
        return std::make_unique<frmQX6105A>(app);
    if (device == "QX4860" || device == "QX4860F" || device == "QX4860I")
        return std::make_unique<frmQX4860>(app);
    if (device == "QX7311" || device == "QX7311F" || device == "QX7311I" || device == "QX7312" ||
        device == "QX7312F" || device == "QX7312I")
        return std::make_unique<frmQX7311>(app);
    if (device == "QX5140")
        return std::make_unique<frmQX5140>(app);
    if (device == "QX3350" || device == "QX3350I")
        return std::make_unique<frmQX3350>(app);
    return nullptr;
}

}  // namespace pendulon
