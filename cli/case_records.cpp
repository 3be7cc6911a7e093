#include "cli/case_records.h"

#include <algorithm>
#include <string>

#include "cli/commands.h"
#include "cli/interrupt.h"

namespace Orlix::Cli {

namespace {

void ForEachRecord(const VelmoApp& app, int iSec, int iTask, std::span<const int> cases,
                   const Data::Velmo9::OutputOptions& options,
                   const std::function<void(const VelmoApp::CaseRecords&)>& use) {
  for (std::size_t begin = 0; begin < cases.size(); begin += kBlock) {
    ThrowIfInterrupted();
    const auto block = cases.subspan(begin, std::min(kBlock, cases.size() - begin));
    std::vector<VelmoApp::CaseRecords> records;
    std::string message;
    if (!app.CompileCaseResults(iSec, iTask, {block.begin(), block.end()}, message, records,
                                options)) {
      throw CommandError(message);
    }
    for (const auto& record : records) use(record);
  }
}

}  // namespace

void ForEachUlsRecord(const VelmoApp& app, int iSec, int iTask, std::span<const int> cases,
                      const std::function<void(int, const Data::Velmo9::CaseULSDetails&)>& use) {
  Data::Velmo9::OutputOptions options;
  options.uls = Data::Velmo9::UlsOutputOptions(true);
  ForEachRecord(app, iSec, iTask, cases, options, [&](const VelmoApp::CaseRecords& record) {
    use(record.first, record.second.first);
  });
}

void ForEachSlsRecord(const VelmoApp& app, int iSec, int iTask, std::span<const int> cases,
                      const std::function<void(int, const Data::Velmo9::CaseSLSDetails&)>& use) {
  Data::Velmo9::OutputOptions options;
  options.sls = Data::Velmo9::SlsOutputOptions(true);
  ForEachRecord(app, iSec, iTask, cases, options, [&](const VelmoApp::CaseRecords& record) {
    use(record.first, record.second.second);
  });
}

}  // namespace Orlix::Cli
