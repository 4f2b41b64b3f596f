#include "desktop/ColorMap.hpp"

namespace pendulon {

QPalette::ColorRole ColorMap::RoleOf(Color systemColor) {
    switch (systemColor & 0xFF) {
        case 0x01:
            return QPalette::Window;  // desktop
        case 0x02:
            return QPalette::Highlight;  // active title bar
        case 0x04:
            return QPalette::Window;  // menu bar
        case 0x05:
            return QPalette::Base;  // window background
        case 0x07:
            return QPalette::Text;  // menu text
        case 0x08:
            return QPalette::Text;  // window text
        case 0x09:
            return QPalette::HighlightedText;  // title bar text
        case 0x0C:
            return QPalette::Window;  // application workspace
        case 0x0D:
            return QPalette::Highlight;  // highlight
        case 0x0E:
            return QPalette::HighlightedText;  // highlight text
        case 0x0F:
            return QPalette::Button;  // button face
        case 0x10:
            return QPalette::Dark;  // button shadow
        case 0x11:
            return QPalette::PlaceholderText;  // grey text
        case 0x12:
            return QPalette::ButtonText;  // button text
        case 0x14:
            return QPalette::Light;  // 3D highlight
        case 0x15:
            return QPalette::Shadow;  // 3D dark shadow
        case 0x16:
            return QPalette::Midlight;  // 3D light
        case 0x17:
            return QPalette::ToolTipText;
        case 0x18:
            return QPalette::ToolTipBase;
        default:
            return QPalette::Window;
    }
}

QColor ColorMap::ToQColor(Color color, const QPalette& palette) {
    if (colors::IsSystemColor(color))
        return palette.color(QPalette::Active, RoleOf(color));
    return QColor(int(color & 0xFF), int((color >> 8) & 0xFF), int((color >> 16) & 0xFF));
}

}  // namespace pendulon
