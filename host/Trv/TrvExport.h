#pragma once

#include <QtGlobal>

#if defined(TRV_LIBRARY)
#define TRV_EXPORT Q_DECL_EXPORT
#else
#define TRV_EXPORT Q_DECL_IMPORT
#endif
