// The ids of all interfaces that host and plug-ins agree on.
#pragma once

#include <oxa/export.h>
#include <oxa/guid.h>

// Interfaces of the library. A context serves those whose headers say so; asking it for another one
// gives E_NOTFOUND.
extern OXA_EXPORT const _GUID IID_IOXAContext;
extern OXA_EXPORT const _GUID IID_IOXADebugMessage;
extern OXA_EXPORT const _GUID IID_IOXAProgressIndicator;
extern OXA_EXPORT const _GUID IID_IOXADirectoryScanner;
extern OXA_EXPORT const _GUID IID_IOXADiagnosticsManager;
extern OXA_EXPORT const _GUID IID_IOXADiagnosticCategoryEnum;
extern OXA_EXPORT const _GUID IID_IOXADiagnosticCategory;
extern OXA_EXPORT const _GUID IID_IOXADiagnostic;
extern OXA_EXPORT const _GUID IID_IOXAXMLParser;
extern OXA_EXPORT const _GUID IID_IOXAPropertyDataTypeTranslator;
extern OXA_EXPORT const _GUID IID_IOXAPropertyManager;
extern OXA_EXPORT const _GUID IID_IOXAPropertyModel;
extern OXA_EXPORT const _GUID IID_IOXAPropertyEnum;
extern OXA_EXPORT const _GUID IID_IOXAProperty;
extern OXA_EXPORT const _GUID IID_IOXAPropertyViewHints;
extern OXA_EXPORT const _GUID IID_IOXAPreferences;
extern OXA_EXPORT const _GUID IID_IOXAInterfaceManager;
extern OXA_EXPORT const _GUID IID_IOXAInterfaceEnum;
extern OXA_EXPORT const _GUID IID_IOXAPluginLoader;
extern OXA_EXPORT const _GUID IID_IOXAUserDefinedDataTypeManager;

// The interface that the object behind every plug-in's entry point implements.
extern OXA_EXPORT const _GUID IID_IOXAPlugin;

// Interfaces that only plug-ins implement. Their operations are a matter between a host and its
// plug-ins; the loader files objects under them as "readers", "writers", "algorithms", "layouts"
// and, for the last, "misc".
extern OXA_EXPORT const _GUID IID_IOXAFileReader;
extern OXA_EXPORT const _GUID IID_IOXAFileWriter;
extern OXA_EXPORT const _GUID IID_IOXAAlgorithm;
extern OXA_EXPORT const _GUID IID_IOXALayout;
extern OXA_EXPORT const _GUID IID_IOXALayoutCompute;
