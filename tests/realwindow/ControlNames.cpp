#include "tests/realwindow/ControlNames.h"

#include <array>
#include <utility>

#include "platform/win32/ControlIds.h"

namespace quorvel::scenario {

int controlId(std::string_view name) {
    constexpr std::array<std::pair<std::string_view, int>, 17> controls{{
        {"hsbA", control_id::hsbA},
        {"vsbA", control_id::vsbA},
        {"vsbS", control_id::vsbS},
        {"txtS", control_id::txtS},
        {"txtSN", control_id::txtSN},
        {"txtA", control_id::txtA},
        {"txtAV", control_id::txtAV},
        {"txtEnter", control_id::txtEnter},
        {"lblStudent", control_id::lblStudent},
        {"lblSN", control_id::lblSN},
        {"lblAN", control_id::lblAN},
        {"lblA1", control_id::lblA1},
        {"lblA2", control_id::lblA2},
        {"lblAV", control_id::lblAV},
        {"lblClassAvg", control_id::lblClassAvg},
        {"lblAvgScore", control_id::lblAvgScore},
        {"Label1", control_id::Label1},
    }};
    for (const auto& [known, id] : controls)
        if (known == name) return id;
    return 0;
}

}  // namespace quorvel::scenario
