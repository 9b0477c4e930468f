#!/usr/bin/env bash
# `tessel format --check` over a generated project of a million lines, beside `clang-format --dry-run` over as many lines of
# C++. Prints both times and their ratio. Needs the release build and clang-format.
set -euo pipefail
cd "$(dirname "$0")/.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
python3 - "$work" <<'PY'
import sys
work = sys.argv[1]
member = """Public Function Compute{0}(ByVal Value As Long) As Long
Dim Result As Long ' the result
If Value > {0} Then
Result = Value * 2: Value = 0
ElseIf Len("text {0}") = 4 Then
For Value = 1 To 10: Result = Result + Value: Next
End If
Compute{0} = Result
End Function

""".replace("\n", "\r\n")
cpp = """long Compute{0}(long Value) {{
long Result = 0; // the result
if (Value > {0}) {{
Result = Value * 2; Value = 0;
}} else if (strlen("text {0}") == 4) {{
for (Value = 1; Value <= 10; ++Value) {{ Result = Result + Value; }}
}}
return Result;
}}

"""
project = "Type=Exe\r\n"
for number in range(1000):
    name = "M%d" % number
    project += "Module=%s; %s.bas\r\n" % (name, name)
    with open("%s/%s.bas" % (work, name), "w", newline="") as out:
        out.write('Attribute VB_Name = "%s"\r\n' % name + "".join(member.format(i) for i in range(100)))
    with open("%s/%s.cpp" % (work, name), "w") as out:
        out.write("".join(cpp.format(i) for i in range(100)))
open(work + "/P.vbp", "w", newline="").write(project + 'Name="P"\r\n')
PY
seconds() { local start end; start=$(date +%s.%N); "$@" >/dev/null 2>&1 || true; end=$(date +%s.%N); echo "$end $start" | awk '{printf "%.2f", $1-$2}'; }
ours=$(seconds build/release/hosts/tessel format --check "$work/P.vbp")
theirs=$(seconds clang-format --dry-run "$work"/*.cpp)
echo "tessel format --check: $ours s; clang-format --dry-run: $theirs s; ratio $(awk "BEGIN{printf \"%.3f\", $ours/$theirs}")"
