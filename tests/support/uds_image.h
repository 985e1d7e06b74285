#pragma once

#include "files/uds_file.h"
#include "tests/support/temp_folder.h"

#include <string_view>

/// Has `file` read these bytes from a file of their own.
inline void ReadImage(ks::CUDSFile& file, std::string_view image) {
    const CTempFolder folder;
    file.Read(folder.Write("image.uds", image));
}
