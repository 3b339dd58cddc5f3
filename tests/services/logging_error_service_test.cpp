#include "services/logging_error_service.h"

#include <gtest/gtest.h>
#include <spdlog/sinks/ostream_sink.h>
#include <spdlog/spdlog.h>

#include <sstream>

#include "host/routine.h"
#include "support/test_support.h"

namespace nvwm {
namespace {

// An error service whose log lines land in a string.
struct CapturedLog {
  std::ostringstream out;
  std::shared_ptr<LoggingErrorService> service;

  CapturedLog() {
    auto sink = std::make_shared<spdlog::sinks::ostream_sink_st>(out);
    auto logger = std::make_shared<spdlog::logger>("nvwm-test", sink);
    logger->set_pattern("%l %v");
    service = std::make_shared<LoggingErrorService>(logger);
  }
};

TEST(LoggingErrorServiceTest, ShowErrorLogsNumberDescriptionAndTrace) {
  CapturedLog log;
  log.service->enterProc("Tallowbrook.exe-modA-outer");
  log.service->enterProc("Tallowbrook.exe-modB-inner");
  log.service->setError(RuntimeError(13, "Type mismatch"));
  log.service->showError();
  EXPECT_EQ(log.out.str(),
            "error error 13 \"Type mismatch\" in Tallowbrook.exe-modA-outer > "
            "Tallowbrook.exe-modB-inner\n");
}

TEST(LoggingErrorServiceTest, ShowErrorWithoutAnErrorLogsNothing) {
  CapturedLog log;
  log.service->showError();
  EXPECT_EQ(log.out.str(), "");
}

TEST(LoggingErrorServiceTest, TraceStackFollowsEnterAndExit) {
  LoggingErrorService service;
  service.exitProc();  // on an empty stack: nothing
  service.enterProc("a");
  service.enterProc("b");
  service.exitProc();
  EXPECT_EQ(service.traceStack(), std::vector<std::string>{"a"});
}

TEST(LoggingErrorServiceTest, ActionAndSuppressionAreSettable) {
  LoggingErrorService service;
  EXPECT_EQ(service.getErrorAction(), 2);
  EXPECT_FALSE(service.errorsAreSuppressed());
  service.setErrorAction(1);
  service.setErrorsAreSuppressed(true);
  EXPECT_EQ(service.getErrorAction(), 1);
  EXPECT_TRUE(service.errorsAreSuppressed());
}

TEST(LoggingErrorServiceTest, DrivesARoutineLikeAHostsService) {
  CapturedLog log;
  testing::ScopedReferences refs;
  references().errorClass = log.service;
  log.service->setErrorAction(1);
  std::vector<int> ran;
  {
    Routine r("Tallowbrook.exe-modTest-steps");
    r.step([&] { ran.push_back(1); });
    r.step([&] { raise(ErrorNumber::kDivisionByZero); });
    r.step([&] { ran.push_back(3); });
  }
  EXPECT_EQ(ran, (std::vector<int>{1, 3}));
  EXPECT_TRUE(log.service->traceStack().empty());
  ASSERT_TRUE(log.service->lastError());
  EXPECT_EQ(log.service->lastError()->number(), 11);
  EXPECT_NE(log.out.str().find("error 11 "), std::string::npos);
  EXPECT_NE(log.out.str().find("in Tallowbrook.exe-modTest-steps\n"), std::string::npos);
}

}  // namespace
}  // namespace nvwm
