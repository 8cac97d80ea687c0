#pragma once

#include "page/ClassSection.h"

namespace quorvel {

// The parts of a class' page that are tables.

Html letterTable(const ClassContent& content);
Html assignmentTable(const ClassContent& content, const SectionPlace& place);
Html studentTable(const ClassContent& content, const SectionPlace& place);
Html scoreTable(const ClassContent& content);

}  // namespace quorvel
