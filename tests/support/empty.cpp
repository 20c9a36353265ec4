// Keeps the support library non-empty when it has no other sources.
