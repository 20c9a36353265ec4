# SPDX-FileCopyrightText: 2026 Morvane Labs
# SPDX-License-Identifier: GPL-3.0-or-later
# Writes OUTPUT, a C++ source holding every resources/i18n/*.ts file as a string,
# so that the core and `uke` carry their string tables without reading files.
file(GLOB TS_FILES "${TS_DIR}/*.ts")
list(SORT TS_FILES)
set(body "#include <map>\n#include <memory>\n#include \"platform/virtual/TsStringTable.h\"\nnamespace uke {\nnamespace {\nconst std::map<std::string, std::string_view>& sources() {\n    static const std::map<std::string, std::string_view> s = {\n")
foreach(ts ${TS_FILES})
  get_filename_component(name ${ts} NAME_WE)
  string(REGEX REPLACE "^[^_]*_" "" lang "${name}")
  file(READ ${ts} content)
  string(APPEND body "        {\"${lang}\", R\"UKETS(${content})UKETS\"},\n")
endforeach()
string(APPEND body "    };\n    return s;\n}\n} // namespace\n\nconst TsStringTable* builtInStrings(const std::string& language) {\n    static std::map<std::string, std::unique_ptr<TsStringTable>> parsed;\n    static const bool ready = [] {\n        for (const auto& [lang, xml] : sources()) {\n            auto t = std::make_unique<TsStringTable>();\n            if (t->parse(xml))\n                parsed[lang] = std::move(t);\n        }\n        return true;\n    }();\n    (void)ready;\n    const auto it = parsed.find(language);\n    return it == parsed.end() ? nullptr : it->second.get();\n}\n\nstd::vector<std::string> builtInLanguages() {\n    std::vector<std::string> out;\n    for (const auto& [lang, xml] : sources())\n        out.push_back(lang);\n    return out;\n}\n\n} // namespace uke\n")
file(WRITE "${OUTPUT}.tmp" "${body}")
file(COPY_FILE "${OUTPUT}.tmp" "${OUTPUT}" ONLY_IF_DIFFERENT)
