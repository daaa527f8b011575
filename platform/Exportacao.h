#pragma once
/// \file
/// Macros de exportação das bibliotecas compartilhadas da casa. Cada biblioteca define
/// `<NOME>_BUILD` ao ser compilada (ver cmake/TavruBiblioteca.cmake); quem a usa importa.

#if defined(_WIN32)
#  define TAVRU_DECL_EXPORT __declspec(dllexport)
#  define TAVRU_DECL_IMPORT __declspec(dllimport)
#else
#  define TAVRU_DECL_EXPORT __attribute__((visibility("default")))
#  define TAVRU_DECL_IMPORT __attribute__((visibility("default")))
#endif

#ifdef TAVRU_PLATAFORMA_BUILD
#  define TAVRU_PLATAFORMA_EXPORT TAVRU_DECL_EXPORT
#else
#  define TAVRU_PLATAFORMA_EXPORT TAVRU_DECL_IMPORT
#endif
#ifdef TAVRU_GEODESIA_BUILD
#  define TAVRU_GEODESIA_EXPORT TAVRU_DECL_EXPORT
#else
#  define TAVRU_GEODESIA_EXPORT TAVRU_DECL_IMPORT
#endif
#ifdef TAVRU_COMPONENTES_BUILD
#  define TAVRU_COMPONENTES_EXPORT TAVRU_DECL_EXPORT
#else
#  define TAVRU_COMPONENTES_EXPORT TAVRU_DECL_IMPORT
#endif
#ifdef TAVRU_SIMBOLOGIA_BUILD
#  define TAVRU_SIMBOLOGIA_EXPORT TAVRU_DECL_EXPORT
#else
#  define TAVRU_SIMBOLOGIA_EXPORT TAVRU_DECL_IMPORT
#endif
#ifdef TAVRU_GIS_BUILD
#  define TAVRU_GIS_EXPORT TAVRU_DECL_EXPORT
#else
#  define TAVRU_GIS_EXPORT TAVRU_DECL_IMPORT
#endif
