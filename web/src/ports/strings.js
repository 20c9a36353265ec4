// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// The app's string tables in the page, made from the translation sources at build
// time (web/tools/make_page.py): {context: {source: translation}} per language.

// "de-AT", "de_AT.UTF-8", "DE" -> "de"; "" for what is not a language code.
export function primaryLanguage(code) {
  const lang = String(code).split(/[.@]/)[0].split(/[_-]/)[0].toLowerCase();
  return /^[a-z]{2,3}$/.test(lang) ? lang : '';
}

// The first of the player's languages the app has, else English.
export function chooseLanguage(preferred, available) {
  for (const code of preferred || []) {
    const lang = primaryLanguage(code);
    if (lang && available.includes(lang)) return lang;
  }
  return 'en';
}

export class StringTables {
  constructor(tables) { this.tables = tables || {}; }

  // The core's lookup: the text, or null when the table lacks it.
  lookup(key, table) {
    const t = this.tables[table];
    return t && Object.prototype.hasOwnProperty.call(t, key) ? t[key] : null;
  }

  // The views' captions: the source text stands where no translation exists.
  tr(context, source) { return this.lookup(source, context) ?? source; }
}
