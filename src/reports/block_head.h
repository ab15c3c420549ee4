#pragma once

#include <string>
#include <vector>

#include "reports/page_labels.h"
#include "store/workspace.h"

namespace triaxlab {

/// Where a block stands on its page.
struct BlockPlace {
  bool firstOfPage = true;
  bool pageHasSameMethod = true;  // as the line under the page's title
};

/// The lines beside a block: what sample it is. UTF-8.
std::vector<std::string> blockHead(const Workspace& workspace, const PageLabels& labels, std::size_t row,
                                   BlockPlace place);

}  // namespace triaxlab
