#include "session.h"

namespace kolmctl {
namespace {

OutputFormat FormatOf(const GlobalOptions& options) {
    if (options.json) {
        return OutputFormat::json;
    }
    return options.tsv ? OutputFormat::tsv : OutputFormat::text;
}

}  // namespace

Session::Session(const GlobalOptions& options, std::ostream& output)
    : m_options(options), m_output(FormatOf(options), output) {}

Camera& Session::OpenCamera() {
    if (m_camera == nullptr) {
        m_camera = OpenChosenCamera(m_options);
    }
    return *m_camera;
}

}  // namespace kolmctl
