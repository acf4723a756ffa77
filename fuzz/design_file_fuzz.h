// What the targets of both design readers share: any bytes as a design file.
#pragma once

#include <cstdlib>
#include <string>
#include <string_view>

#include "design/state.h"
#include "stage/stage.h"

namespace torvane {

// Opens the bytes on computers with either decimal sign. What was read, saved and opened again comes to rest:
// a text that the reader did not take may need one more opening, until the blank's own has passed its mask.
template <class Open, class Save>
int FuzzDesignFile(std::string_view bytes, std::string path, Open open, Save save) {
  for (const char decimal : {'.', ','}) {
    Stage stage;
    const Platform platform = stage.AsPlatform();
    stage.files.Put(path, std::string(bytes));
    DesignState s({decimal, '/', ':'});
    s.gDecimalComma = decimal == ',';
    std::string former, saved;
    for (int openings = 0; openings < 4; ++openings) {
      if (!open(s, platform, path) || !save(s, platform, path)) std::abort();
      former = saved;
      saved = stage.files.ReadWhole(path).value();
    }
    if (saved != former) std::abort();
  }
  return 0;
}

}  // namespace torvane
