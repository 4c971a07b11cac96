#pragma once
/// @file  The platform's kernel-streaming headers, included in the one order and with the one switch that they need.

#include <windows.h>

#include <strmif.h>
#include <winioctl.h>

#include <ks.h>

// NOLINTNEXTLINE(bugprone-reserved-identifier): the platform's own name
#define __STREAMS__  // ksproxy.h declares IKsObject and KsSynchronousDeviceControl only for filters, which this names
#include <ksproxy.h>
#undef __STREAMS__
