// Drives the core's clock from the page's timers: every 10 ms the core runs
// what is due (its tuner tick among it) and the views are shown what changed.
// Tests drive the core's clock by hand instead and never start this.
export class PageClock {
  constructor(app, onChanges, timers = globalThis) {
    this.app = app;
    this.onChanges = onChanges;
    this.timers = timers;
    this.origin = timers.performance.now();
    this.interval = null;
  }

  // Seconds since the clock was made.
  now() { return (this.timers.performance.now() - this.origin) / 1000; }

  start() {
    if (this.interval === null) this.interval = this.timers.setInterval(() => this.step(), 10);
  }

  stop() {
    if (this.interval !== null) this.timers.clearInterval(this.interval);
    this.interval = null;
  }

  step() {
    this.app.advanceTo(this.now());
    const changes = this.app.changes();
    if (changes) this.onChanges(JSON.parse(changes));
  }
}
