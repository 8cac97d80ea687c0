#pragma once

#include "page/ClassSection.h"

namespace quorvel {

/// The empty cells, by student and by assignment.
Html missingSection(const ClassContent& content, const SectionPlace& place);

}  // namespace quorvel
