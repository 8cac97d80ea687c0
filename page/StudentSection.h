#pragma once

#include "page/Html.h"
#include "page/PageContent.h"

namespace quorvel {

/// All of one student, for their parents.
Html studentSection(const StudentContent& content);

}  // namespace quorvel
