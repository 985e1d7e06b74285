#include "cli/output/header_text.h"

#include "cli/join.h"
#include "cli/output/display_text.h"
#include "signal/data.h"
#include "signal/header_groups.h"

#include <string>
#include <string_view>

std::string HeaderReport(const std::string& path, const ks::CData& record) {
    std::string text = DisplayText(path) + "\n";
    std::string_view title;
    for (const ks::CHeaderGroup& group : ks::HeaderGroups()) {
        if (group.title != title) text += Join({group.title, "\n"});
        title = group.title;
        if (!ks::HasHeaderGroup(record, group)) {
            text += "  not in this file\n";
            continue;
        }
        for (const ks::CHeaderValue& value : ks::HeaderValues(group, record)) {
            text += Join({"  ", DisplayText(ks::HeaderLine(value)), "\n"});
        }
    }
    return text;
}
