// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps the whole app on the device: at install every file of this build is
// cached, and from then on the page loads from the cache, with or without a
// network. A new build has a new cache name (written in by the build), so the
// browser sees a changed worker, installs the new files as a whole and drops the old.
const CACHE = 'uketuner-__CACHE__';

self.addEventListener('install', (event) => {
  event.waitUntil((async () => {
    const build = await (await fetch('build.json', { cache: 'no-store' })).json();
    const cache = await caches.open(CACHE);
    await cache.addAll([...build.files, 'build.json'].map((f) => new Request(f, { cache: 'no-store' })));
    await self.skipWaiting();
  })());
});

self.addEventListener('activate', (event) => {
  event.waitUntil((async () => {
    for (const name of await caches.keys()) if (name !== CACHE) await caches.delete(name);
    await self.clients.claim();
  })());
});

self.addEventListener('fetch', (event) => {
  const request = event.request;
  if (request.method !== 'GET' || new URL(request.url).origin !== self.location.origin) return;
  event.respondWith((async () => {
    const cache = await caches.open(CACHE);
    const cached = await cache.match(request, { ignoreSearch: true }) ||
      (request.mode === 'navigate' ? await cache.match('./') : undefined);
    return cached || fetch(request);
  })());
});
