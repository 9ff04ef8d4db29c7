#pragma once

#include <QtGlobal>

#if defined(VXGUI_LIBRARY)
#define VXGUI_EXPORT Q_DECL_EXPORT
#else
#define VXGUI_EXPORT Q_DECL_IMPORT
#endif
