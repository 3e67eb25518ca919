qt_add_resources(${name} "tst_qrcimageprovider_images"
    PREFIX "/testimages"
    BASE image/data
    FILES image/data/quadrants.png)
qt_add_resources(${name} "tst_qrcimageprovider_qml"
    PREFIX "/qml"
    BASE opengl/data
    FILES opengl/data/QrcImages.qml)
