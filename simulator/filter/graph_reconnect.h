#pragma once
/// @file  Brings a new media type through a connected graph.

#include <windows.h>

#include <strmif.h>

namespace kolmsim {

/// Connects an output pin anew with another type, then each connection behind it, so that the graph agrees everywhere.
///
/// The graph must be stopped. A bare `IFilterGraph::Reconnect` does not reach behind a tee.
///
/// @param type  for the first connection; null lets the pins find one, as the later connections do
/// @return      the first failure; that connection is left open
HRESULT ReconnectDownstream(IFilterGraph* graph, IPin* output, const AM_MEDIA_TYPE* type);

}  // namespace kolmsim
