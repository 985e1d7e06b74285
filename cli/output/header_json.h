#pragma once

#include "signal/data.h"

#include <string>

/// The JSON of `show`, file by file; docs/formats/show.md describes it.
class CHeaderJson {
public:
    void AddFile(const std::string& path, const ks::CData& record);
    void AddError(const std::string& path, const std::string& message);

    /// The whole text. Nothing may be added after this call.
    std::string Finish();

private:
    std::string m_files;
    std::string m_errors;
};
