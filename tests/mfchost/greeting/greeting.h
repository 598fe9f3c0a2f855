// greeting.h : a class exported by the extension DLL mfchostext.dll
//

#pragma once

class AFX_EXT_CLASS CGreeting : public CObject
{
	DECLARE_DYNCREATE(CGreeting)

public:
	CGreeting();

	CString Greet(const CString& strName) const;

	int m_nTimes;
};
