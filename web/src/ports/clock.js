// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// Moves the core's clock on the page's timers. The core ticks every 10 ms, but a
// tick only draws something new after a new block or an action: between those it
// would draw the same again. So the page wakes only when something can happen,
// and then the core runs every tick due since, in order:
// - 10 ms after a captured block, an action or any other news (`poke`),
// - when a delayed message of the core is due,
// and before a block is handed over, so that the ticks before it see the block
// before it. A page that woke a hundred times a second would spend more on waking
// than on tuning. Tests move the core's clock by hand instead and never start this.
export const TICK = 0.01;

export class PageClock {
  constructor(app, onChanges, timers = globalThis) {
    this.app = app;
    this.onChanges = onChanges;
    this.timers = timers;
    this.origin = timers.performance.now();
    this.soon = null;   // the wake 10 ms after news
    this.due = null;    // the wake for the next delayed message
    this.running = false;
  }

  // Seconds since the clock was made.
  now() { return (this.timers.performance.now() - this.origin) / 1000; }

  start() {
    this.running = true;
    this.step();
  }

  stop() {
    this.running = false;
    for (const t of [this.soon, this.due]) if (t !== null) this.timers.clearTimeout(t);
    this.soon = this.due = null;
  }

  // Runs the core up to now; call before handing it anything from outside.
  catchUp() { this.app.advanceTo(this.now()); }

  // Something came in: the next tick shows what it changed.
  poke() {
    if (!this.running || this.soon !== null) return;
    this.soon = this.timers.setTimeout(() => {
      this.soon = null;
      this.step();
    }, TICK * 1000);
  }

  step() {
    if (!this.running) return;
    this.catchUp();
    const changes = this.app.changes();
    if (changes) this.onChanges(JSON.parse(changes));
    if (this.due !== null) this.timers.clearTimeout(this.due);
    this.due = null;
    const at = this.app.nextMessageDue();
    if (at >= 0) {
      this.due = this.timers.setTimeout(() => {
        this.due = null;
        this.step();
      }, Math.max(0, (at - this.now()) * 1000) + 1);
    }
  }
}
