#include "cli/case_records.h"

#include <algorithm>
#include <string>

#include "cli/commands.h"

namespace Orlix::Cli {

void ForEachRecord(const VelmoApp& app, int iSec, int iTask, std::span<const int> cases,
                   const std::function<void(int, const Data::Velmo9::CaseULSDetails&)>& use) {
  for (std::size_t begin = 0; begin < cases.size(); begin += kBlock) {
    const auto block = cases.subspan(begin, std::min(kBlock, cases.size() - begin));
    std::vector<VelmoApp::CaseRecords> records;
    std::string message;
    if (!app.CompileCaseResults(iSec, iTask, {block.begin(), block.end()}, message, records,
                                Data::Velmo9::OutputOptions(true))) {
      throw CommandError(message);
    }
    for (const auto& [iCase, record] : records) use(iCase, record.first);
  }
}

double GoverningUtilisation(const Data::Velmo9::UlSResult& result, LoadAction action) {
  return action == LoadAction::load ? result.LoadUtilisation() : result.DeformationUtilisation();
}

}  // namespace Orlix::Cli
