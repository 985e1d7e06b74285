#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// How to interpret an argument that begins with "/".
enum class CSlashRule {
    AlwaysSwitch,  ///< as Windows users expect
    SwitchIfKnown  ///< a switch only when no further "/" follows and the word is a known one; else the path of a file
};

#ifdef _WIN32
inline constexpr CSlashRule kPlatformSlashRule = CSlashRule::AlwaysSwitch;
#else
inline constexpr CSlashRule kPlatformSlashRule = CSlashRule::SwitchIfKnown;
#endif

/// The options of the command line. Only the file list and the channel class take effect at start-up; the others are
/// read and kept because users' scripts pass them.
class CMyCommandInfo {
public:
    bool isSaeFilterOn = true;
    bool hasComponents = true;  ///< components rather than the resultant
    bool isListFileExpected = false;
    bool isOutputRequested = false;
    bool isLeftSide = true;
    float windowLength = 36.0F;  ///< ms
    std::int32_t axisMode = 0;   ///< 0 resultant, 1 3D, 2 XYZ, 3 SFC
    std::int32_t channelClass = 1000;
    std::int32_t vNumber = 10;
    double criticalValue = 0.0;
    bool isReserved = false;           ///< no switch sets it
    std::array<std::string, 5> texts;  ///< the fifth becomes "HIC"
    std::vector<std::string> reservedList;
    std::vector<std::string> files;  ///< plain arguments and the lines of list files, in order; UTF-8

    explicit CMyCommandInfo(CSlashRule slashRule = kPlatformSlashRule) : m_slashRule(slashRule) {}

    /// Reads the arguments in order, without the program's name.
    void Parse(std::span<const std::string> arguments);
    /// Reads one argument. "-" begins a switch, and so does "/", by the slash rule. Unknown switches are ignored.
    void ParseArgument(std::string_view argument);

private:
    [[nodiscard]] bool IsSwitch(std::string_view argument) const;
    void TakeSwitch(std::string_view text);
    void TakePlain(std::string_view text);
    bool AppendListFile(const std::string& path);

    CSlashRule m_slashRule;
};
