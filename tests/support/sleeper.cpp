// The program of running_program. It ends by itself in case nobody ends it.

#include <chrono>
#include <thread>

int main()
{
    std::this_thread::sleep_for(std::chrono::minutes(1));
}
