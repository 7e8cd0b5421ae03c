#include "world/HL_WORLD.h"
#include "core/files.h"
#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <thread>

namespace {

std::atomic<int> gate{0};

int square(int v) { return v * v; }
int alerting(int) { NB_ALERT("Timed out IO_nav thread after 60 seconds.", "", "", "", alert_fatal); return 1; }
int waits_for_gate(int v)
{
	while (!gate.load()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
	return v + 1;
}

}  // namespace

TEST(Threads, CallsRunOnWorkersAndGiveTheirValues)
{
	THREAD_Init();
	ASSERT_TRUE(THREAD_IsInited());
	EXPECT_TRUE(THREAD_IsMainThread());
	int calls[64];
	for (int k = 0; k < 64; k++) calls[k] = THREAD_RunAsync(square, k, 1);
	for (int k = 0; k < 64; k++) {
		ASSERT_EQ(THREAD_IsDone(calls[k], 10.0f), 1);
		EXPECT_EQ(THREAD_DoneValue(calls[k]), k * k);
		THREAD_Cleanup(calls[k]);
	}
	// A call not yet done says so when the wait runs out, and is done once let go.
	gate = 0;
	const int slow = THREAD_RunAsync(waits_for_gate, 41, 1);
	EXPECT_EQ(THREAD_IsDone(slow, 0.05f), 0);
	gate = 1;
	EXPECT_EQ(THREAD_IsDone(slow, 10.0f), 1);
	EXPECT_EQ(THREAD_DoneValue(slow), 42);
	THREAD_Cleanup(slow);
	THREAD_Cleanup();
	EXPECT_FALSE(THREAD_IsInited());
}

TEST(Threads, AnAlertOnAWorkerIsRaisedAtTheJoin)
{
	THREAD_Init();
	const int call = THREAD_RunAsync(alerting, 0, 1);
	try {
		THREAD_IsDone(call, 10.0f);
		FAIL() << "the join passed the alert by";
	} catch (const XFatalAlert& x) {
		EXPECT_EQ(x.c1_, "Timed out IO_nav thread after 60 seconds.");
	}
	THREAD_Cleanup(call);
	THREAD_Cleanup();
	// Without workers a call runs at once on the caller.
	const int here = THREAD_RunAsync(square, 9, 1);
	EXPECT_EQ(THREAD_IsDone(here, 0.0f), 1);
	EXPECT_EQ(THREAD_DoneValue(here), 81);
}
