// The worker-thread service: one worker per processor taking calls from a locked queue,
// for the file and grid work of loading the world. The caller joins a call with a time
// limit; an alert a call raised on its worker is raised again at the join.
#include "world/HL_WORLD.h"
#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <exception>
#include <map>
#include <mutex>
#include <thread>
#include <vector>

namespace {

struct call_state {
	int (*func)(int);
	int param;
	int done;
	int result;
	std::exception_ptr error;
};

std::mutex gLock;                 // guards the calls and the queue
std::condition_variable gQueueReady, gDoneEvent;
std::deque<int> gCallQueue;       // call numbers; -1 tells a worker to return
std::map<int, call_state> gCalls;
std::vector<std::thread> gWorkers;
std::thread::id gMainThread;
int gNextCall = 1, gInited = 0;

void run_one_call(int call)
{
	int (*func)(int);
	int param;
	{
		std::lock_guard<std::mutex> hold(gLock);
		func = gCalls[call].func;
		param = gCalls[call].param;
	}
	int result = 0;
	std::exception_ptr error;
	try {
		result = func(param);
	} catch (...) {
		error = std::current_exception();
	}
	{
		std::lock_guard<std::mutex> hold(gLock);
		call_state& c = gCalls[call];
		c.result = result;
		c.error = error;
		c.done = 1;
	}
	gDoneEvent.notify_all();
}

void task_proc()
{
	for (;;) {
		int call;
		{
			std::unique_lock<std::mutex> hold(gLock);
			gQueueReady.wait(hold, [] { return !gCallQueue.empty(); });
			call = gCallQueue.front();
			gCallQueue.pop_front();
		}
		if (call < 0) return;
		run_one_call(call);
	}
}

}  // namespace

void THREAD_Init()
{
	if (gInited) return;
	gMainThread = std::this_thread::get_id();
	const unsigned n = std::max(1u, std::thread::hardware_concurrency());
	for (unsigned k = 0; k < n; k++) gWorkers.emplace_back(task_proc);
	gInited = 1;
}

int THREAD_IsInited() { return gInited; }
int THREAD_IsMainThread() { return std::this_thread::get_id() == gMainThread; }

int THREAD_RunAsync(int (*inFunc)(int), int inParam, int inDiskIO)
{
	int call;
	{
		std::lock_guard<std::mutex> hold(gLock);
		call = gNextCall++;
		gCalls[call] = {inFunc, inParam, 0, 0, nullptr};
		if (gInited && (gWorkers.size() > 1 || inDiskIO)) gCallQueue.push_back(call);
		else call = -call;   // run here, below
	}
	if (call < 0) {
		run_one_call(-call);
		return -call;
	}
	gQueueReady.notify_one();
	return call;
}

int THREAD_IsDone(int call, float inWaitSeconds)
{
	std::unique_lock<std::mutex> hold(gLock);
	const auto until = std::chrono::steady_clock::now() + std::chrono::duration<double>(inWaitSeconds > 0.0f ? inWaitSeconds : 0.0f);
	if (!gDoneEvent.wait_until(hold, until, [call] { auto it = gCalls.find(call); return it == gCalls.end() || it->second.done; })) return 0;
	auto it = gCalls.find(call);
	if (it != gCalls.end() && it->second.error) {
		std::exception_ptr e = it->second.error;
		it->second.error = nullptr;
		hold.unlock();
		std::rethrow_exception(e);
	}
	return 1;
}

int THREAD_DoneValue(int call)
{
	std::lock_guard<std::mutex> hold(gLock);
	auto it = gCalls.find(call);
	return it == gCalls.end() ? 0 : it->second.result;
}

void THREAD_Cleanup(int call)
{
	std::lock_guard<std::mutex> hold(gLock);
	gCalls.erase(call);
}

void THREAD_Cleanup()
{
	if (!gInited) return;
	{
		std::lock_guard<std::mutex> hold(gLock);
		for (size_t k = 0; k < gWorkers.size(); k++) gCallQueue.push_back(-1);
	}
	gQueueReady.notify_all();
	for (std::thread& t : gWorkers) t.join();
	gWorkers.clear();
	std::lock_guard<std::mutex> hold(gLock);
	gCallQueue.clear();
	gCalls.clear();
	gInited = 0;
}
