// Everything that the library offers to a host, in one include.
#pragma once

#include <oxa/IOXAContext.h>
#include <oxa/IOXADebugMessage.h>
#include <oxa/IOXADiagnosticCategoryEnum.h>
#include <oxa/IOXADirectoryScanner.h>
#include <oxa/IOXAId.h>
#include <oxa/IOXAInterfaceEnum.h>
#include <oxa/IOXAInterfaceManager.h>
#include <oxa/IOXAPlugin.h>
#include <oxa/IOXAPluginLoader.h>
#include <oxa/IOXAProgressIndicator.h>
#include <oxa/IOXAPropertyEnum.h>
#include <oxa/IOXAReference.h>
#include <oxa/guid.h>
#include <oxa/interface_ids.h>
#include <oxa/result.h>
#include <oxa/sdk/guard.h>
#include <oxa/sdk/guid_text.h>
#include <oxa/sdk/implements.h>
#include <oxa/sdk/ranges.h>
#include <oxa/sdk/ref.h>
#include <oxa/sdk/result_text.h>
#include <oxa/sdk/utf8.h>
#include <oxa/shared_objects.h>
#include <oxa/strings.h>
