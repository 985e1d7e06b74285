#include "cli/output/verify_json.h"

#include "cli/output/json_text.h"
#include "compare/ratings/verification/annex.h"
#include "compare/ratings/verification/reference_case.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace {

using ratings::CCheck;
using ratings::CReferenceCase;

void RealOrNull(CJsonText& json, std::string_view key, const std::optional<double>& value) {
    json.Key(key);
    if (value) {
        json.Real(*value);
    } else {
        json.Null();
    }
}

void Text(CJsonText& json, std::string_view key, std::string_view value) {
    json.Key(key);
    json.String(value);
}

void AddCheck(CJsonText& json, const CCheck& check) {
    json.NewLine("    ");
    json.Open('{');
    Text(json, "metric", check.metric);
    RealOrNull(json, "expected", check.expected);
    RealOrNull(json, "got", check.got.IsNumber() ? std::optional(check.got.Number()) : std::nullopt);
    json.Key("reason");
    if (check.got.IsNumber()) {
        json.Null();
    } else {
        json.String(check.got.Reason());
    }
    RealOrNull(json, "deviation", check.Deviation());
    RealOrNull(json, "tolerance", check.precision.tolerance);
    Text(json, "verdict", check.Passes() ? "pass" : "fail");
    json.Close('}');
}

void AddCase(CJsonText& json, const CReferenceCase& referenceCase) {
    json.NewLine("  ");
    json.Open('{');
    Text(json, "name", referenceCase.name);
    Text(json, "signals", referenceCase.signals);
    Text(json, "source", NameOf(referenceCase.source));
    json.Key("checks");
    json.Open('[');
    for (const CCheck& check : referenceCase.checks) AddCheck(json, check);
    json.Close(']');
    json.Close('}');
}

void AddSources(CJsonText& json) {
    json.NewLine();
    json.Key("sources");
    json.Open('{');
    for (const ratings::CCaseSourceText& source : ratings::CaseSources()) {
        json.NewLine("  ");
        Text(json, source.name, source.text);
    }
    json.Close('}');
}

void AddAnnex(CJsonText& json, const CVerification& verification) {
    json.NewLine();
    json.Key("annex");
    if (!verification.annexFolder) {
        json.Null();
        return;
    }
    json.Open('{');
    Text(json, "folder", *verification.annexFolder);
    json.Key("errors");
    json.Open('[');
    for (const ratings::CAnnexError& error : verification.annexErrors) {
        json.NewLine("  ");
        json.Open('{');
        Text(json, "path", error.path);
        Text(json, "message", error.sentence);
        json.Close('}');
    }
    json.Close(']');
    json.Close('}');
}

void AddCounts(CJsonText& json, std::span<const CReferenceCase> cases) {
    const ratings::CCheckCount count = ratings::CountChecks(cases);
    json.NewLine();
    json.Key("checkCount");
    json.Integer(count.all);
    json.NewLine();
    json.Key("failedCount");
    json.Integer(count.failed);
}

}  // namespace

std::string VerifyJson(const CVerification& verification) {
    CJsonText json;
    json.Open('{');
    json.NewLine();
    Text(json, "format", "quorvel-verify");
    json.NewLine();
    json.Key("version");
    json.Integer(1);
    AddCounts(json, verification.cases);
    json.NewLine();
    json.Key("cases");
    json.Open('[');
    for (const CReferenceCase& referenceCase : verification.cases) AddCase(json, referenceCase);
    json.Close(']');
    AddSources(json);
    AddAnnex(json, verification);
    json.Space("\n");
    json.Close('}');
    json.Space("\n");
    std::string text;
    for (const std::string& piece : json.Take()) text += piece;
    return text;
}
