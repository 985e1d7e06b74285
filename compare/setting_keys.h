#pragma once

/// A setting that holds a text, and what it is while it was never stored.
struct CTextSetting {
    const char* name;
    const char* fallback;
};

/// A setting that holds a whole number, and what it is while it was never stored.
struct CNumberSetting {
    const char* name;
    int fallback;
};

/// Every value of the group "Settings". The names are stored on users' machines: frozen.
namespace setting {
inline constexpr CTextSetting kInputDir{"InputDir", "Q:\\uds\\vehdb"};          ///< picker of computed files
inline constexpr CTextSetting kReferenceDir{"ReferenceDir", "Q:\\uds\\vehdb"};  ///< picker of the reference
inline constexpr CNumberSetting kDataType{"DataType", 3};                       ///< filter of both pickers, 1-based
inline constexpr CNumberSetting kReferenceType{"ReferenceType", 0};   ///< 1: "Compare to Average"; kept, other programs
                                                                      ///< may read it, ours only writes it
inline constexpr CTextSetting kHitlistDir{"HitlistDir", "c:\\"};      ///< pickers of hit lists
inline constexpr CTextSetting kUdsOutputDir{"UdsOutputDir", "C:\\"};  ///< UDS output
inline constexpr CTextSetting kAsciiOutputDir{"AsciiOutputDir", "C:\\"};  ///< ASCII output
/// HTML report; the folder is that of the UDS output, but a first report starts in the home folder.
inline constexpr CTextSetting kHtmlOutputDir{kUdsOutputDir.name, ""};
}  // namespace setting
