// The page of a report, without the data of a list.
#pragma once

#include <string_view>

namespace Report {

// What precedes and what follows the data. The end contains the script, so that a page that is cut off shows
// nothing but a notice.
extern const std::string_view PageStart;
extern const std::string_view PageEnd;

}  // namespace Report
