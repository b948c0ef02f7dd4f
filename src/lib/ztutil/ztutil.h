#ifndef ZTUTIL_ZTUTIL_H
#define ZTUTIL_ZTUTIL_H

// Every public header of the ztutil platform layer.
#include <ztutil/ZtUArena.h>
#include <ztutil/ZtUAutoPtr.h>
#include <ztutil/ZtUChecksum.h>
#include <ztutil/ZtUComponent.h>
#include <ztutil/ZtUData.h>
#include <ztutil/ZtUError.h>
#include <ztutil/ZtUExport.h>
#include <ztutil/ZtUOption.h>
#include <ztutil/ZtUPtrVector.h>
#include <ztutil/ZtUStream.h>
#include <ztutil/ZtUStringBuffer.h>
#include <ztutil/ZtUSysError.h>
#include <ztutil/ZtUWeakReference.h>
#include <ztutil/ZtUXMLDOMStream.h>

#endif
