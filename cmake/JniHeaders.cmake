# Where <jni.h> is: in the folder of the Java compiler. Also for who builds against the installed package.
find_package(Java 17 REQUIRED COMPONENTS Development)
file(REAL_PATH ${Java_JAVAC_EXECUTABLE} javac)
cmake_path(SET TARQ_JNI_INCLUDE NORMALIZE "${javac}/../../include")
list(APPEND TARQ_JNI_INCLUDE ${TARQ_JNI_INCLUDE}/linux)
