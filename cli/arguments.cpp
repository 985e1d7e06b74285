#include "cli/arguments.h"

#include "cli/messages.h"
#include "cli/usage_error.h"
#include "files/number_text.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

// What the parser reports for an option of the kind Names that has no value.
constexpr std::string_view kNoNames = "*";

CLI::Option* Declare(CLI::App& app, const COptionDeclaration& declaration) {
    const std::string name(declaration.name);
    switch (declaration.kind) {
        case COptionKind::Flag:
            return app.add_flag(name)->disable_flag_override()->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
        case COptionKind::Names:
            return app.add_flag(name + "{" + std::string(kNoNames) + "}")
                ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
        case COptionKind::Single:
        case COptionKind::Repeatable:
            break;
        case COptionKind::Pair:
            return app.add_option(name)->type_size(2)->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    }
    return app.add_option(name)->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

std::string NeedsValue(const COptionDeclaration& declaration) {
    return cli_message::ValueMissing(declaration.name, declaration.argument);
}

bool TakesValue(const COptionDeclaration& declaration) {
    return declaration.kind != COptionKind::Flag && declaration.kind != COptionKind::Names;
}

const COptionDeclaration* FindDeclaration(std::span<const COptionDeclaration> declarations, std::string_view name) {
    const auto found = std::find_if(declarations.begin(), declarations.end(),
                                    [name](const COptionDeclaration& d) { return d.name == name; });
    return found == declarations.end() ? nullptr : &*found;
}

// Rewords the parser's complaint, which begins with the option's name, with or without its hyphens.
std::string Sentence(std::span<const COptionDeclaration> declarations, const CLI::ParseError& error) {
    const std::string_view text = error.what();
    for (const COptionDeclaration& declaration : declarations) {
        const std::string_view bare = declaration.name.substr(2);
        if (TakesValue(declaration) && text.starts_with(std::string(declaration.name) + ":")) {
            return NeedsValue(declaration);
        }
        if (!TakesValue(declaration) && text.starts_with(std::string(bare) + " ")) {
            return cli_message::ValueNotTaken(declaration.name);
        }
    }
    return std::string(text);
}

// The parser takes "--name=" as "--name" and would use the next argument as its value.
void RefuseEmptyValues(std::span<const COptionDeclaration> declarations, const std::vector<std::string>& arguments) {
    for (const std::string& argument : arguments) {
        if (argument == "--") {
            return;
        }
        if (!argument.ends_with('=')) {
            continue;
        }
        const COptionDeclaration* const declaration =
            FindDeclaration(declarations, std::string_view(argument).substr(0, argument.size() - 1));
        if (declaration != nullptr) {
            throw CUsageError(NeedsValue(*declaration));
        }
    }
}

// "--html --json out.json": the value of --html was forgotten; nobody means a file named "--json".
void RefuseOptionsAsValues(std::span<const COptionDeclaration> declarations, const COptionDeclaration& option,
                           const std::vector<std::string>& values) {
    for (const std::string& value : values) {
        if (FindDeclaration(declarations, value) != nullptr || value == "--") {
            throw CUsageError(NeedsValue(option));
        }
    }
}

void CheckCount(const COptionDeclaration& option, std::size_t count) {
    const bool isSingle = option.kind == COptionKind::Single || option.kind == COptionKind::Pair;
    const std::size_t most = option.kind == COptionKind::Pair ? 2 : 1;
    if (isSingle && count > most) {
        throw CUsageError(cli_message::OnlyOnce(option.name));
    }
}

// What the parser left over: files, the separator "--" and options that it does not know.
std::vector<std::string> FilesAmong(const std::vector<std::string>& rest) {
    std::vector<std::string> files;
    bool isMarked = false;
    for (const std::string& argument : rest) {
        if (!isMarked && argument == "--") {
            isMarked = true;
        } else if (!isMarked && argument.size() > 1 && argument.front() == '-') {
            throw CUsageError(cli_message::UnknownOption(argument));
        } else {
            files.push_back(argument);
        }
    }
    return files;
}

}  // namespace

double ReadNumber(std::string_view option, const std::string& text) {
    const std::optional<double> value = ks::ReadWholeNumber(text);
    if (!value) {
        throw CUsageError(cli_message::NumberNotRead(option, text));
    }
    return *value;
}

CArguments::CArguments(std::span<const COptionDeclaration> declarations, const std::vector<std::string>& arguments) {
    RefuseEmptyValues(declarations, arguments);
    CLI::App app;
    app.set_help_flag();
    app.allow_extras();
    app.allow_windows_style_options(false);
    std::vector<CLI::Option*> parsed;
    for (const COptionDeclaration& declaration : declarations) {
        parsed.push_back(Declare(app, declaration));
    }
    try {
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::ParseError& error) {
        throw CUsageError(Sentence(declarations, error));
    }
    for (std::size_t i = 0; i < declarations.size(); ++i) {
        COption option{declarations[i].name, parsed[i]->count() > 0, parsed[i]->results()};
        RefuseOptionsAsValues(declarations, declarations[i], option.values);
        CheckCount(declarations[i], option.values.size());
        std::replace(option.values.begin(), option.values.end(), std::string(kNoNames), std::string());
        m_options.push_back(std::move(option));
    }
    m_files = FilesAmong(app.remaining());
}

const CArguments::COption& CArguments::Find(std::string_view name) const {
    return *std::find_if(m_options.begin(), m_options.end(), [name](const COption& o) { return o.name == name; });
}

bool CArguments::Has(std::string_view name) const {
    return Find(name).isPresent;
}

const std::vector<std::string>& CArguments::Values(std::string_view name) const {
    return Find(name).values;
}

std::optional<std::string> CArguments::Value(std::string_view name) const {
    const std::vector<std::string>& values = Values(name);
    return values.empty() ? std::nullopt : std::optional<std::string>(values.front());
}
