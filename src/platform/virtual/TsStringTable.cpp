// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/virtual/TsStringTable.h"

namespace uke {

namespace {

std::string unescape(std::string_view s) {
    std::string out;
    out.reserve(s.size());
    for (size_t i = 0; i < s.size(); ++i) {
        if (s[i] != '&') {
            out += s[i];
            continue;
        }
        const size_t semi = s.find(';', i);
        if (semi == std::string_view::npos) {
            out += s[i];
            continue;
        }
        const std::string_view ent = s.substr(i + 1, semi - i - 1);
        if (ent == "amp") out += '&';
        else if (ent == "lt") out += '<';
        else if (ent == "gt") out += '>';
        else if (ent == "quot") out += '"';
        else if (ent == "apos") out += '\'';
        else {
            out.append(s.substr(i, semi - i + 1));
        }
        i = semi;
    }
    return out;
}

// The text between <tag ...> and </tag> starting the search at `from`; npos when absent.
struct Element {
    size_t begin = std::string_view::npos;  // start of the opening tag
    size_t end = std::string_view::npos;    // just past the closing tag
    std::string_view attributes;
    std::string_view body;
};

Element findElement(std::string_view xml, std::string_view tag, size_t from, size_t limit) {
    Element e;
    const std::string open = "<" + std::string(tag);
    size_t p = xml.find(open, from);
    while (p != std::string_view::npos && p < limit) {
        const char next = p + open.size() < xml.size() ? xml[p + open.size()] : '\0';
        if (next == '>' || next == ' ' || next == '/' || next == '\t' || next == '\n')
            break;
        p = xml.find(open, p + 1);
    }
    if (p == std::string_view::npos || p >= limit)
        return e;
    const size_t gt = xml.find('>', p);
    if (gt == std::string_view::npos)
        return e;
    e.begin = p;
    e.attributes = xml.substr(p + open.size(), gt - p - open.size());
    if (gt > 0 && xml[gt - 1] == '/') {  // <translation/>
        e.end = gt + 1;
        return e;
    }
    const std::string close = "</" + std::string(tag) + ">";
    const size_t c = xml.find(close, gt);
    if (c == std::string_view::npos || c > limit)
        return Element{};
    e.body = xml.substr(gt + 1, c - gt - 1);
    e.end = c + close.size();
    return e;
}

} // namespace

bool TsStringTable::parse(std::string_view xml) {
    const Element ts = findElement(xml, "TS", 0, xml.size());
    if (ts.begin == std::string_view::npos)
        return false;
    const size_t lang = ts.attributes.find("language=\"");
    if (lang != std::string_view::npos) {
        const size_t start = lang + 10;
        language_ = std::string(ts.attributes.substr(start, ts.attributes.find('"', start) - start));
    }
    const std::string_view body = ts.body;
    size_t pos = 0;
    while (true) {
        const Element ctx = findElement(body, "context", pos, body.size());
        if (ctx.begin == std::string_view::npos)
            break;
        pos = ctx.end;
        const Element name = findElement(ctx.body, "name", 0, ctx.body.size());
        auto& table = tables_[unescape(name.body)];
        size_t mpos = 0;
        while (true) {
            const Element msg = findElement(ctx.body, "message", mpos, ctx.body.size());
            if (msg.begin == std::string_view::npos)
                break;
            mpos = msg.end;
            const Element src = findElement(msg.body, "source", 0, msg.body.size());
            const Element tr = findElement(msg.body, "translation", 0, msg.body.size());
            if (src.begin == std::string_view::npos || tr.begin == std::string_view::npos)
                continue;
            if (tr.attributes.find("unfinished") != std::string_view::npos || tr.body.empty())
                continue;
            table[unescape(src.body)] = unescape(tr.body);
        }
    }
    return true;
}

std::optional<std::string> TsStringTable::lookup(const std::string& key, const std::string& table) const {
    const auto t = tables_.find(table);
    if (t == tables_.end())
        return std::nullopt;
    const auto e = t->second.find(key);
    if (e == t->second.end())
        return std::nullopt;
    return e->second;
}

const TsStringTable& stringsForLanguage(const std::string& language) {
    if (const TsStringTable* t = builtInStrings(language))
        return *t;
    if (const TsStringTable* en = builtInStrings("en"))
        return *en;
    static const TsStringTable empty;
    return empty;
}

} // namespace uke
