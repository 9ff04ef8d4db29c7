#pragma once

#include <QtGlobal>

#if defined(UICOMMONMDL_LIBRARY)
#define UICOMMONMDL_EXPORT Q_DECL_EXPORT
#else
#define UICOMMONMDL_EXPORT Q_DECL_IMPORT
#endif
