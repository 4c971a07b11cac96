#pragma once
/// @file  A scripted filter graph: stand-ins for the system's graph, capture graph builder, sample grabber and
/// renderer.

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "support/scripted_filter.h"
#include "support/stand_in_class.h"

#include <control.h>
#include <qedit.h>

namespace kolmfluxor::test {

/// As long as it lives, this process makes still pictures with these stand-ins. Every call is noted by name.
///
/// `Run` shows the samples to the grabber's callback. The thread must have initialized COM.
class CScriptedGraph {
public:
    CScriptedGraph();
    ~CScriptedGraph();
    CScriptedGraph(const CScriptedGraph&) = delete;
    CScriptedGraph& operator=(const CScriptedGraph&) = delete;

    // The script
    CScriptedFilter device;                  ///< the capture filter; its formats are those of the stream
    std::map<std::string, HRESULT> results;  ///< of calls by their names in `calls`; S_OK otherwise
    std::vector<std::vector<BYTE>> samples;  ///< of one run
    bool givesNothing = false;               ///< FindInterface succeeds without an object
    std::function<void()> onRun;             ///< called at the end of `Run`
    CCallFaults* faults = nullptr;           ///< counts the calls, if there is one
    std::function<HRESULT(REFIID, void**)> configInterfaces;  ///< of the stream configuration, beside its own

    // What was seen
    /// GetFormat and SetFormat carry a number from 1, since they come twice in a capture.
    std::vector<std::string> calls;
    ISampleGrabberCB* callback = nullptr;  ///< counted as long as it is set
    long callbackMethod = -1;
    AM_MEDIA_TYPE grabberType{};
    ULONG references = 0;  ///< of graph, builder, grabber and configuration that are not released

private:
    class CGraph;
    class CControl;
    class CBuilder;
    class CGrabber;
    class CConfig;
    template <class Interface> friend class CGraphPart;

    /// Notes a call, and tells what becomes of it. @param canBeEmpty  has an output that it may fail to give
    CallFate Call(const std::string& name, bool canBeEmpty = false);
    /// A creation cannot be empty: the system's function takes an object for granted.
    HRESULT Make(const std::string& name, IUnknown* object, REFIID riid, void** out, bool canBeEmpty = false);

    CScriptedFilter m_grabberFilter;
    CScriptedFilter m_renderer;
    std::unique_ptr<CGraph> m_graph;
    std::unique_ptr<CControl> m_control;
    std::unique_ptr<CBuilder> m_builder;
    std::unique_ptr<CGrabber> m_grabber;
    std::unique_ptr<CConfig> m_config;
    std::vector<std::unique_ptr<CStandInClass>> m_classes;
};

}  // namespace kolmfluxor::test
