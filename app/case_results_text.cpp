#include "app/case_results_text.h"

#include <rapidjson/document.h>

#include <algorithm>
#include <cstddef>
#include <vector>

#include "app/AppMessages.h"
#include "app/CaseRecorder.h"
#include "app/current_results.h"
#include "model/oxutil/ForEachCase.h"
#include "model/oxutil/json.h"

namespace Orlix {

using Data::Velmo9::OutputOptions;

namespace {

constexpr std::size_t kCasesInPiece = 32;       // some 100 kB of text
constexpr std::size_t kCaseMemory = 64 * 1024;  // more than the JSON values of a case need

void AppendCase(const CaseRecorder& recorder, int iCase, const OutputOptions& options,
                std::string_view margin, std::string& text) {
  // One block of memory a thread, used again for every case.
  thread_local std::vector<char> memory(kCaseMemory);
  Util::JsonAllocator allocator(memory.data(), memory.size());
  const Util::JsonValue json = recorder.ToJson(iCase, recorder.Record(iCase, options), allocator);
  text.append(margin);
  Util::AppendPrettyJson(json, margin, text);
}

void WriteAll(const CaseRecorder& recorder, std::span<const int> cases, std::string_view margin,
              const std::function<void(std::string_view)>& write) {
  const OutputOptions options = CaseRecorder::JsonOptions();
  const std::size_t numPieces = (cases.size() + kCasesInPiece - 1) / kCasesInPiece;
  const auto make = [&](std::ptrdiff_t piece, std::string& text) {
    const std::size_t begin = static_cast<std::size_t>(piece) * kCasesInPiece;
    const std::size_t end = std::min(begin + kCasesInPiece, cases.size());
    for (std::size_t i = begin; i < end; ++i) {
      if (i > 0) text.append(",\n");
      AppendCase(recorder, cases[i], options, margin, text);
    }
  };
  MakeInOrder(static_cast<std::ptrdiff_t>(numPieces), make, write);
}

}  // namespace

bool WriteCaseResults(const Data::CVelmoData& document, int iSec, int iTask,
                      std::span<const int> cases, std::string_view margin,
                      const std::function<void(std::string_view)>& write, std::string& message) {
  if (!TaskExists(document, iSec, iTask, message)) return false;
  return WithCurrentResults(document, iSec, iTask, [&](const auto& section) {
    if (const auto unsolved = FirstUnsolved(section.Task(iTask), cases)) {
      message = AppMessages::NoCaseResults(*unsolved);
      return false;
    }
    WriteAll(CaseRecorder(document, section, iSec, iTask), cases, margin, write);
    return true;
  });
}

}  // namespace Orlix
