#ifndef OVELA_EXPORT_H
#define OVELA_EXPORT_H

/**
 * @file
 * Marks the declarations that the shared library exports. The library is
 * built with hidden visibility: what these headers declare with OVELA_EXPORT
 * is its whole interface, and nothing inside it is reachable or interposable
 * from outside.
 */

/** Makes a class or function of the interface visible outside the library. */
#define OVELA_EXPORT __attribute__((visibility("default")))

#endif  // OVELA_EXPORT_H
