#include "host/batch/worker.h"

#include <fmt/format.h>

#include <cstdio>
#include <exception>
#include <new>
#include <optional>
#include <variant>

#include "BrvEDK/Source/hostrecords.h"
#include "host/batch/distantuser.h"
#include "host/batch/mayhelp.h"
#include "host/process/exitstatus.h"
#include "host/process/interrupt.h"
#include "host/process/memorylimit.h"
#include "host/process/memoryshortage.h"
#include "host/services/document.h"
#include "host/services/documentimage.h"
#include "host/services/session.h"
#include "host/text/reason.h"

namespace brvhost {
namespace {

void Invoke(DocumentImage& image, OpenDocument& document, const JobSettings& settings, const Extension& extension,
            int item, Channel& channel) {
  DistantUser user(channel, settings.agree);
  Session session(extension, document, user);
  // The extension may write to its records.
  const auto invoke = [&](EREGION* selected) {
    EREGION fallback = WholeScore(image.score);
    extension.Invoke(item, selected, &fallback);
  };
  if (image.blocks.empty()) invoke(nullptr);
  for (const Block& block : image.blocks) {
    session.Select(block);
    EREGION selected = block.region;
    invoke(&selected);
    if (session.HasFailed() || InterruptCount() > 0) break;
  }
  extension.Terminate();
  session.RethrowFailure();  // the extension may have gone on with half of its work
}

Message ResultOf(const OpenDocument& document, const Score& score) {
  const std::string refused = document.RefusedChange();
  if (refused.empty()) return ResultMessage{HiddenBits(score)};
  return FailureMessage{refused + "; a score takes changes of ledger lines alone, and nothing was written"};
}

void SendWarnings(const OpenDocument& document, const Channel& channel) {
  for (const std::string& misuse : document.MisusesSoFar().Texts()) channel.Send(WarningMessage{misuse});
  const auto added = document.AddedRecords();
  if (added == 0) return;
  channel.Send(
      WarningMessage{fmt::format("added records to the document, which a score cannot hold: {} in all", added)});
}

Message RunToTheEnd(DocumentImage& image, const JobSettings& settings, const Extension& extension, int item,
                    Channel& channel) {
  OpenDocument document(image.score, std::move(image.records));
  Invoke(image, document, settings, extension, item, channel);
  SendWarnings(document, channel);
  return ResultOf(document, image.score);
}

Message Run(std::string_view document, const JobSettings& settings, const Extension& extension, int item,
            Channel& channel) {
  try {
    const MemoryLimit limit(settings.maxMemory.value_or(DefaultMemory(document.size())), 1);
    return limit.During([&] {
      DocumentImage image = ReadImage(document);
      return WithEnoughMemory([&] { return RunToTheEnd(image, settings, extension, item, channel); });
    });
  } catch (const std::exception& error) {
    return Failure(fmt::format("failed: {}; nothing was written", ReasonOf(error)), MayPass(error));
  }
}

int Work(const Extension& extension, const JobSettings& settings, int item, Channel& channel) {
  const auto first = channel.Receive();
  if (!first || !std::holds_alternative<DocumentMessage>(*first)) return kFailed;  // the score cannot be used
  const Message result = Run(std::get<DocumentMessage>(*first).text, settings, extension, item, channel);
  std::fflush(nullptr);  // what the extension printed is there before the result
  return channel.Send(result) ? kDone : kFailed;
}

}  // namespace

int RunWorker(const Extension& extension, const JobSettings& settings, int item, Channel channel) {
  PressCancelKeysOnInterrupt();
  try {
    return Work(extension, settings, item, channel);
  } catch (const std::bad_alloc&) {
    channel.Send(NoMemoryMessage{});
    return kFailed;
  }
}

}  // namespace brvhost
