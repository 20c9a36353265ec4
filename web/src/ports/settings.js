// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// The settings store's backend in the page: every value in one localStorage item,
// each with its type ([tag, value]: "b" boolean, "i" integer, "d" number, "s" text),
// which a plain JavaScript number would lose. The core's typed accessors read them.
export const STORAGE_KEY = 'uketuner.settings';

export class LocalSettings {
  // `storage`: window.localStorage or anything with getItem/setItem/removeItem.
  constructor(storage, log) {
    this.storage = storage;
    this.log = log;
    this.values = new Map();
    this.unwritten = false; // a write failed; everything is written at the next chance
    this.load();
  }

  load() {
    let text = null;
    try {
      text = this.storage.getItem(STORAGE_KEY);
    } catch (e) {
      // Storage can be refused outright (private modes, blocked cookies).
      this.log(`Settings: the browser's storage cannot be read (${e.name}); settings last until the page closes`);
      this.storage = null;
      return;
    }
    if (text === null) return;
    const parsed = parseStore(text);
    if (parsed) {
      this.values = parsed;
      return;
    }
    // A damaged store is kept aside for whoever wants to look, and the app starts afresh.
    this.log('Settings: the stored settings were damaged; they were kept aside as "' +
             STORAGE_KEY + '.damaged" and the app starts with its first-launch settings');
    try {
      this.storage.setItem(STORAGE_KEY + '.damaged', text);
      this.storage.removeItem(STORAGE_KEY);
    } catch (e) { /* nothing more can be done; the damaged text is simply not read again */ }
  }

  value(key) { return this.values.has(key) ? this.values.get(key) : null; }

  setValue(key, tag, value) {
    this.values.set(key, [tag, value]);
    this.write();
  }

  wipe() {
    this.values.clear();
    this.write();
  }

  synchronize() { this.write(); }

  keys() { return [...this.values.keys()]; }

  write() {
    if (!this.storage) return;
    try {
      this.storage.setItem(STORAGE_KEY, JSON.stringify(Object.fromEntries(this.values)));
      if (this.unwritten) this.log('Settings: stored again');
      this.unwritten = false;
    } catch (e) {
      // Full or refused: the values stay in memory, said once, and are all written
      // with the next change that can be.
      if (!this.unwritten) this.log(`Settings: cannot be stored (${e.name}); they are kept until the page closes`);
      this.unwritten = true;
    }
  }
}

const TAGS = { b: 'boolean', i: 'number', d: 'number', s: 'string' };

// The stored map, or null when the text is not one this store wrote.
function parseStore(text) {
  let object;
  try {
    object = JSON.parse(text);
  } catch {
    return null;
  }
  if (typeof object !== 'object' || object === null || Array.isArray(object)) return null;
  const values = new Map();
  for (const [key, entry] of Object.entries(object)) {
    if (!Array.isArray(entry) || entry.length !== 2 || typeof entry[1] !== TAGS[entry[0]]) return null;
    if ((entry[0] === 'i' && !Number.isInteger(entry[1])) || (entry[0] === 'd' && !Number.isFinite(entry[1])))
      return null;
    values.set(key, entry);
  }
  return values;
}
