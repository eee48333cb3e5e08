// SPDX-License-Identifier: MIT
#include "logmanager/names/glob.h"

#include <cstddef>
#include <vector>

namespace boost::logging::detail {

bool globMatches(std::string_view _glob, std::string_view _text) {
  // After a mismatch only the latest star has to take one more character: an earlier one that took more could be
  // replaced by the latest one.
  std::size_t glob = 0;
  std::size_t text = 0;
  std::size_t afterStar = std::string_view::npos;
  std::size_t starEnd = 0;
  while (text < _text.size()) {
    if (glob < _glob.size() && _glob[glob] == '*') {
      afterStar = ++glob;
      starEnd = text;
    } else if (glob < _glob.size() && _glob[glob] == _text[text]) {
      ++glob;
      ++text;
    } else if (afterStar != std::string_view::npos) {
      glob = afterStar;
      text = ++starEnd;
    } else {
      return false;
    }
  }
  return _glob.find_first_not_of('*', glob) == std::string_view::npos;
}

bool globsMeet(std::string_view _one, std::string_view _other) {
  // meets[j]: whether the rest of _one from the current place and the rest of _other from j match a common text.
  std::vector<char> meets(_other.size() + 1);
  std::vector<char> meetsAfter(_other.size() + 1);
  for (std::size_t i = _one.size() + 1; i-- > 0;) {
    for (std::size_t j = _other.size() + 1; j-- > 0;) {
      const bool oneEnds = i == _one.size();
      const bool otherEnds = j == _other.size();
      const bool oneStar = !oneEnds && _one[i] == '*';
      const bool otherStar = !otherEnds && _other[j] == '*';
      bool found = oneEnds && otherEnds;
      // A star ends, or takes what the other glob has next.
      if (oneStar) found = meetsAfter[j] != 0 || (!otherEnds && meets[j + 1] != 0);
      if (otherStar) found = found || meets[j + 1] != 0 || (!oneEnds && meetsAfter[j] != 0);
      if (!oneStar && !otherStar && !oneEnds && !otherEnds) found = _one[i] == _other[j] && meetsAfter[j + 1] != 0;
      meets[j] = found ? 1 : 0;
    }
    meets.swap(meetsAfter);
  }
  return meetsAfter[0] != 0;
}

}  // namespace boost::logging::detail
