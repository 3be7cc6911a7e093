// Any bytes as a stress-strain curve: taken whole or refused with a message and nothing changed.

#include <rapidjson/document.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "materials/MaterialCurveImporter.h"
#include "materials/curve_text.h"
#include "model/oxutil/json.h"
#include "model/vldata/document/CVelmoData.h"

namespace Orlix {
namespace {

void Require(bool holds) {
  if (!holds) std::abort();
}

// One grade of every type, since runs are short then; strains as plain numbers.
Data::CVelmoData Prepared() {
  Util::JsonDocument json;
  std::string error;
  Require(Util::ParseJson(R"({"units": {"strain": "ε"}, "materials": {
            "concrete": [{"name": "C30/37"}], "reinforcement": [{"name": "B500B"}],
            "steel": [{"name": "own", "f_k": 355e6, "E": 210e9}],
            "FRP": [{"name": "own", "f_k": 1e9, "E": 200e9}]}})",
                          json, error));
  return Data::CVelmoData(json);
}

void CheckReadsBackTheSame(const Data::CVelmoData& document) {
  Util::JsonDocument json;
  document.toJson(json, json.GetAllocator(), false);
  const std::string text = Util::PrettyJson(json);
  std::string error;
  Util::JsonDocument again;
  Require(Util::ParseJson(text, again, error));
  const Data::CVelmoData read(again);
  Require(read.ReadProblems().empty());
  Require(*read.getMaterials() == *document.getMaterials());
}

// The head byte chooses the material and the side; lines end in LF or CR LF in a file, in CR LF
// alone in a text.
void Import(std::uint8_t head, const std::string& bytes) {
  constexpr std::array<MatType, 4> kTypes = {MatType::steel, MatType::concrete, MatType::FRP,
                                             MatType::reinforcement};
  static const Data::CVelmoData kPrepared = Prepared();
  Data::CVelmoData document = kPrepared;
  const MatType type = kTypes[head & 3U];
  const LoadState state = (head & 4U) != 0 ? LoadState::ULS : LoadState::SLS;
  std::string text = bytes;
  if ((head & 8U) != 0) {
    std::istringstream file(bytes);
    text = CurveTextFrom(file);
  }
  for (const LoadSign sign : {LoadSign::compression, LoadSign::tension}) {
    const Data::Materials before = *document.getMaterials();
    std::string message;
    const bool done =
        MaterialCurveImporter(document, type, 0, state, sign, message).ImportPointsFromText(text);
    Require(done == message.empty());
    const Data::Materials& materials = *document.getMaterials();
    if (!done) {
      Require(materials == before);
      continue;
    }
    const Data::Design::CMatCurveParam& curve = materials.Grade(type, 0).Curve(state);
    Require(!curve.Segments().empty());
    for (const double strain : {-1.0, -0.002, -1e-9, 0.0, 1e-9, 0.002, 1.0}) {
      Require(std::isfinite(curve.Stress(strain)));
    }
    CheckReadsBackTheSame(document);
  }
}

}  // namespace
}  // namespace Orlix

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 0) Orlix::Import(data[0], std::string(data + 1, data + size));
  return 0;
}
