// SPDX-License-Identifier: MIT
#include <TRS8_BTL/serial/WIN_Com.h>
#include <TRS8_BTL/testing/PortSimulator.h>

#include <iostream>

int main()
{
    Testing::CPortSimulator instrument(7);
    instrument.On("?", {{"ready"}});
    WIN::CCom port(WIN::Int2Com(7), 0);
    System::AnsiString answer;
    if (!port.WriteString("?") || !port.ReadString(answer, 5)) {
        return 1;
    }
    std::cout << answer << '\n';
}
