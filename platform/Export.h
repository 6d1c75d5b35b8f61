#pragma once

#include <QtGlobal>

/// @file
/// Marks what the library offers to hosts.

#ifdef ZELKA_BUILD
#define ZELKA_EXPORT Q_DECL_EXPORT
#else
#define ZELKA_EXPORT Q_DECL_IMPORT
#endif
