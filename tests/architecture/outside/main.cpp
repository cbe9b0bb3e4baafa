#include "RGBAColor.h"

int main()
{
    return quenara::RGBAColor::fromHex(u"FFF").red == 1 ? 0 : 1;
}
