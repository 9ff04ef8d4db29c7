#pragma once

#include <QtGlobal>

#if defined(PLATFORMLOGIC_LIBRARY)
#define PLATFORMLOGIC_EXPORT Q_DECL_EXPORT
#else
#define PLATFORMLOGIC_EXPORT Q_DECL_IMPORT
#endif
