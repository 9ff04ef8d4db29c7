#pragma once

#include <QtGlobal>

#if defined(CARDREADER_LIBRARY)
#define CARDREADER_EXPORT Q_DECL_EXPORT
#else
#define CARDREADER_EXPORT Q_DECL_IMPORT
#endif
