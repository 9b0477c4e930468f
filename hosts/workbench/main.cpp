#include "hosts/workbench/platform/Pictures.h"
int main() { tessel::workbench::LoadResources(); }
