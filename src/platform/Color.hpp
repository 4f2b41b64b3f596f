#pragma once
#include <cstdint>

namespace pendulon {

// Colours as the product stores them: RGB in the low three bytes (red lowest), or a system
// colour index with the high bit set.
using Color = std::uint32_t;

namespace colors {
inline constexpr Color Black = 0x000000;
inline constexpr Color Red = 0x0000FF;          // 255: a value out of limits
inline constexpr Color Yellow = 0x00FFFF;       // 65535: a calculation is pending
inline constexpr Color White = 0xFFFFFF;
inline constexpr Color Grey = 0xC0C0C0;         // 12632256: calculation done
inline constexpr Color ActiveTitleBar = 0x80000002;
inline constexpr Color WindowBackground = 0x80000005;
inline constexpr Color WindowText = 0x80000008;
inline constexpr Color TitleBarText = 0x80000009;
inline constexpr Color ButtonFace = 0x8000000F;
inline constexpr Color ButtonShadow = 0x80000010;
inline constexpr Color ButtonText = 0x80000012;
inline constexpr Color Highlight3D = 0x80000014;

constexpr bool IsSystemColor(Color c) { return (c & 0x80000000u) != 0; }
}  // namespace colors

}  // namespace pendulon
