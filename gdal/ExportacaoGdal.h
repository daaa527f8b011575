#pragma once
/// \file
/// Macro de exportação da biblioteca opcional `tavru_gdal` (ver platform/Exportacao.h).

#include <tavru/platform/Exportacao.h>

#ifdef TAVRU_GDAL_BUILD
#  define TAVRU_GDAL_EXPORT TAVRU_DECL_EXPORT
#else
#  define TAVRU_GDAL_EXPORT TAVRU_DECL_IMPORT
#endif
