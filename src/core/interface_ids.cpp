#include <oxa/interface_ids.h>
#include <oxa/sdk/guid_text.h>

constexpr _GUID IID_IOXAContext = oxa::guid("{0154AC61-6A91-4795-9CA3-E7B6092FA95F}");
constexpr _GUID IID_IOXADebugMessage = oxa::guid("{48846183-88DB-4144-A4E1-1688739A7FC0}");
constexpr _GUID IID_IOXAProgressIndicator = oxa::guid("{D222C1CE-9949-4D84-B6BB-224C18FC4CD7}");
constexpr _GUID IID_IOXADirectoryScanner = oxa::guid("{45957A0E-DFBA-42F8-9333-5305FE966F52}");
constexpr _GUID IID_IOXADiagnosticsManager = oxa::guid("{DE6469ED-6735-4DE1-9B41-015DB70A278B}");
constexpr _GUID IID_IOXADiagnosticCategoryEnum =
    oxa::guid("{AA25BEDE-E3FD-4805-A3E2-C17A1542CB55}");
constexpr _GUID IID_IOXADiagnosticCategory = oxa::guid("{49CF6266-419F-40FF-BA88-7A83475F86D0}");
constexpr _GUID IID_IOXADiagnostic = oxa::guid("{C9025788-A6E7-47B4-980B-B1416DF21126}");
constexpr _GUID IID_IOXAXMLParser = oxa::guid("{257562D8-62A2-4E2F-820B-495FED01D186}");
constexpr _GUID IID_IOXAPropertyDataTypeTranslator =
    oxa::guid("{ACD82182-C139-4E27-88C6-9B83FF901D55}");
constexpr _GUID IID_IOXAPropertyManager = oxa::guid("{A37D412B-A7CE-4D4C-8839-E7A3FDE89AD1}");
constexpr _GUID IID_IOXAPropertyModel = oxa::guid("{A8870518-FE3A-437D-85C0-83758182AA43}");
constexpr _GUID IID_IOXAPropertyEnum = oxa::guid("{B42A7113-39C6-46F6-848C-9DB53918B7E8}");
constexpr _GUID IID_IOXAProperty = oxa::guid("{B1BD69C1-6625-4D1A-98FB-452EC5064168}");
constexpr _GUID IID_IOXAPropertyViewHints = oxa::guid("{46361B29-9571-47CF-90C5-639862CABE64}");
constexpr _GUID IID_IOXAPreferences = oxa::guid("{13942B3A-F530-4F25-A295-CBB5AC580C72}");
constexpr _GUID IID_IOXAInterfaceManager = oxa::guid("{7B6ADF96-B239-4A5D-A0BD-31E8AA0E462A}");
constexpr _GUID IID_IOXAInterfaceEnum = oxa::guid("{C07A4D82-9422-4E8D-A611-00BB4447E31A}");
constexpr _GUID IID_IOXAPluginLoader = oxa::guid("{C0629617-A2B9-4D4A-8C5C-14DE19DC0E5A}");
constexpr _GUID IID_IOXAPlugin = oxa::guid("{55F873C6-3564-4A75-A967-5CF76C5E8D44}");
constexpr _GUID IID_IOXAUserDefinedDataTypeManager =
    oxa::guid("{A1FE147D-A057-45E3-9C4A-16822C126309}");
constexpr _GUID IID_IOXAFileReader = oxa::guid("{554D7018-D0E0-46FF-9052-B6D4D228460A}");
constexpr _GUID IID_IOXAFileWriter = oxa::guid("{A66DE1F7-6596-44EF-BA4C-ECA79E720DC2}");
constexpr _GUID IID_IOXAAlgorithm = oxa::guid("{46231C11-0CC4-4B68-92B0-B4C4E0C7A0A9}");
constexpr _GUID IID_IOXALayout = oxa::guid("{9D9B6916-6D4C-47A4-AB30-7BA17EB91D89}");
constexpr _GUID IID_IOXALayoutCompute = oxa::guid("{AB43F7B8-26F9-44A7-BDFD-440DBF5405D1}");
