// Resource identifiers of twstddlg.dll, shared by the code and twstddlg.rc.
#pragma once
